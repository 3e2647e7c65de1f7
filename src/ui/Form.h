// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <exception>
#include <functional>
#include <string>

#include "app/Services.h"

namespace vx3260 {

/// What the program's forms have in common: they centre themselves on the screen, open each other
/// modally, and show the errors of their handlers. A form reads the chip in its constructor; an
/// exception from there leaves the form unopened and is shown by the opener. Escape and the close
/// box end in reject(), as "B&ack" does. Enter clicks the button that has the focus, and no other.
/// A form larger than its screen gets scroll bars. F1 opens the page of help that has the form's
/// object name.
class Form : public QDialog {
    Q_OBJECT

  public:
    Form(Services& services, QWidget* parent);

    void setVisible(bool visible) override;

  protected:
    Services& Shared() const { return services_; }
    ApplicationState& State() { return services_.state; }

    /// Shows a message box over this form.
    MessageAnswer ShowMessage(const Message& message);

    /// Shows why an attempt failed; `detail` says what was left unchanged.
    void ShowFailure(const std::exception& error, const std::string& detail);

    /// Runs a handler. An exception that leaves it is shown as its text with the critical icon; an
    /// EntryError also with its advice, and its line edit gets the focus.
    void Guarded(const std::function<void()>& handler);

    /// Connects a control's signal to a member function of the form, which is run as Guarded does.
    template <typename Sender, typename Signal, typename Derived>
    void On(Sender* sender, Signal signal, void (Derived::*handler)()) {
        connect(sender, signal, this, [this, handler] {
            Guarded([this, handler] { (static_cast<Derived*>(this)->*handler)(); });
        });
    }

    /// The same for an option button that becomes selected, by the user or by the program.
    /// Selecting it again does not call the handler.
    void OnSelected(QAbstractButton* option, const std::function<void()>& handler);

    /// Opens another form and returns when it has been closed. `given` is what its constructor
    /// takes between the services and the parent.
    template <typename Opened, typename... Given>
    void OpenForm(const Given&... given) {
        Opened form(services_, given..., this);
        form.exec();
    }

    /// Shows in `label` what the readings come from, BoardStateOf; it follows what the form's own
    /// accesses meet.
    void ShowBoardLabel(QLabel* label);
    void UpdateBoardLabel();

    void OpenHelp();

    void keyPressEvent(QKeyEvent* event) override;
    /// Makes the form open beside the screen's centre: -1 to its left, 1 to its right, as far as
    /// the form's width and the screen allow.
    void OpenAside(double side) { side_ = side; }

    /// Shows or hides a part of the form's layout; the form grows or shrinks by the part's height,
    /// as far as the screen allows.
    void ShowPart(QWidget* part, bool shown);

    /// Makes the form high enough for a wrapped text that has become longer, as far as the screen
    /// allows.
    void GrowToTexts();

    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void PrepareButtons();
    void FollowFrame();
    void FitToScreen(const QMargins& frame);
    void MakeScrollableBeyond(const QSize& space);
    int HeightOfTexts() const;
    void CentreOnScreen(const QMargins& frame);
    void MakeScrollable();

    Services& services_;
    QLabel* boardLabel_ = nullptr;
    bool prepared_ = false;
    bool scrollable_ = false;
    int frameChecks_ = 0;
    double side_ = 0;
};

}  // namespace vx3260
