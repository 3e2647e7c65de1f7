// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDialog>
#include <memory>
#include <optional>
#include <string>

#include "files/CodeText.h"
#include "link/BlockConditions.h"
#include "link/Converter.h"
#include "ui/Form.h"

namespace Ui {
class DataFileForm;
}

namespace vx3260 {

/// What the forms remember of a data file from one opening to the next.
struct DataFileChoice {
    QString path;  ///< empty for the name the form begins with
    Notation notation = Notation::Decimal;
    Converter converter = Converter::Main;
};

/// Sets notation and converter by the look of the file. Returns whether both are beyond doubt.
/// Throws FileAccessError or BadDataError.
bool ChooseByLook(DataFileChoice& choice);

/// The visible differences between the twins ReadFileForm and WriteFileForm.
struct DataFileTraits {
    QString title;
    QString heading;
    QString command;  ///< caption of the button that does the work
    QFileDialog::AcceptMode dialog;
    std::string failureDetail;  ///< what is shown besides the reason of a failure
    bool offersConditions;      ///< whether the conditions can be left out
};

/// What the twins share: a path, a notation, one converter's block of codes, and a text about what
/// has been done. A file dropped on the form becomes the path.
class DataFileForm : public Form {
    Q_OBJECT

  public:
    ~DataFileForm() override;

    /// Shows a text in place of a result.
    void ShowHint(const QString& text);

    /// Does what the form's main button does, without showing the form. Gives the text of the
    /// result label, which is empty after a failure; that has been shown.
    QString Run();

  protected:
    /// The form begins with `choice`, which outlives it, and keeps the user's choices there;
    /// without one it remembers nothing.
    DataFileForm(Services& services, const DataFileTraits& traits, DataFileChoice* choice,
                 QWidget* parent);

    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    /// Reads or writes the file under `path`, which is not empty and not a pipe or device. Returns
    /// the text of the result label. Throws FileAccessError or BadDataError.
    virtual QString Process(const std::string& path) = 0;

    Notation ChosenNotation() const;
    Converter ChosenConverter() const;
    CodeBlock ChosenBlock() { return State().BlockOf(ChosenConverter()); }
    std::optional<BlockConditions>& ChosenConditions() {
        return State().ConditionsOf(ChosenConverter());
    }

    /// Whether the conditions of the chosen block are wanted, and known.
    bool ConditionsWanted();

    /// "Main", "Aux", as in the forms' texts.
    QString ChosenName() const;

    /// How many codes the chosen block has: "200 codes".
    QString ChosenCount();

  private:
    void Browse();
    void RunChosen() { Run(); }
    std::string Path() const;
    void ShowCounts();
    void ShowConditions();

    std::unique_ptr<Ui::DataFileForm> ui_;
    DataFileTraits traits_;
    DataFileChoice* choice_;
};

}  // namespace vx3260
