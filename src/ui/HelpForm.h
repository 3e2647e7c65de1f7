// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class HelpForm;
}

namespace vx3260 {

/// The help: pages in Markdown, which are compiled in, with links between them. One window for all
/// forms of the program; it stays usable while modal forms open and close.
class HelpForm final : public QDialog {
    Q_OBJECT

  public:
    /// The page of the form of that name, or the contents if there is none.
    static void Open(QWidget* form, const QString& name);

    /// The contents.
    static void OpenContents(QWidget* form);

    /// Called before `form` is shown and before it is hidden: the help window, if it is open, then
    /// belongs to `owner`, which is the form itself or the one that opened it. A modal form blocks
    /// all windows but its own.
    static void GiveTo(QWidget* owner, QWidget* form);

    ~HelpForm() override;

  protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    explicit HelpForm(QWidget* parent);

    void ShowContents();
    void ShowPage(const QString& name);
    void StylePage();
    void PlaceBeside(const QWidget& form);

    std::unique_ptr<Ui::HelpForm> ui_;
};

}  // namespace vx3260
