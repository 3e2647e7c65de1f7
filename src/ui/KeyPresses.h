// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>
#include <functional>
#include <vector>

namespace vx3260 {

/// Whether the key is Enter, of the keyboard or of its number pad.
bool IsEnter(const QKeyEvent& key);

/// Gives a widget's key presses to `handle` first. Those for which it returns true go no further.
/// Lives as long as the widget.
void OnKeyPress(QWidget* widget, std::function<bool(const QKeyEvent&)> handle);

/// Makes Enter click the button while it has the focus, as Space does.
void ClickOnEnter(QAbstractButton* button);

/// Makes the arrow keys move the focus between the option buttons of one frame and select none, and
/// Tab enter them at the selected one. `options` are in the order of the arrow keys; those that are
/// hidden or disabled are passed over.
void MoveFocusByArrows(const std::vector<QAbstractButton*>& options);

/// Selects the line edit's whole text whenever it gets the focus, by mouse too, so that typing
/// replaces it.
void SelectTextOnFocus(QLineEdit* edit);

}  // namespace vx3260
