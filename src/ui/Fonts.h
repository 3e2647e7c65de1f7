#pragma once

#include <QWidget>

namespace vx3260 {

/// The heading of a form: the platform's font, larger.
void UseHeadingFont(QWidget* widget);

/// Register contents and codes: the system's fixed-width font.
void UseFixedFont(QWidget* widget);

}  // namespace vx3260
