// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace vx3260 {

/// The heading of a form: the platform's font, larger.
void UseHeadingFont(QWidget* widget);

/// A register's value beside its bits: fixed-width and large.
void UseValueFont(QWidget* widget);

/// Register contents and codes: the system's fixed-width font.
void UseFixedFont(QWidget* widget);

}  // namespace vx3260
