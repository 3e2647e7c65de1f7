// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDialog>
#include <memory>
#include <string>

#include "files/CodeText.h"
#include "link/Converter.h"
#include "ui/Form.h"

namespace Ui {
class DataFileForm;
}

namespace vx3260 {

/// The visible differences between the twins ReadFileForm and WriteFileForm.
struct DataFileTraits {
    QString title;
    QString command;  ///< caption of the button that does the work
    QFileDialog::AcceptMode dialog;
    std::string failureDetail;  ///< what is shown besides the reason of a failure
};

/// What the twins share: a path, a notation, one converter's block of codes, and a text about what
/// has been done.
class DataFileForm : public Form {
    Q_OBJECT

  public:
    ~DataFileForm() override;

  protected:
    DataFileForm(Services& services, const DataFileTraits& traits, QWidget* parent);

    /// Reads or writes the file under `path`, which is not empty and not a pipe or device. Returns
    /// the text of the result label. Throws FileAccessError or BadDataError.
    virtual QString Process(const std::string& path) = 0;

    Notation ChosenNotation() const;
    Converter ChosenConverter() const;
    CodeBlock ChosenBlock() { return State().BlockOf(ChosenConverter()); }

    /// "Main", "Aux", as in the forms' texts.
    QString ChosenName() const;

    /// How many codes the chosen block has: "200 codes".
    QString ChosenCount();

  private:
    void Browse();
    void Run();
    std::string Path() const;
    void ShowCounts();

    std::unique_ptr<Ui::DataFileForm> ui_;
    DataFileTraits traits_;
};

}  // namespace vx3260
