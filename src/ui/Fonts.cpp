// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Fonts.h"

#include <QFontDatabase>

namespace vx3260 {

void UseHeadingFont(QWidget* widget) {
    constexpr double headingSize = 1.4;
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * headingSize);
    font.setBold(true);
    widget->setFont(font);
}

void UseValueFont(QWidget* widget) {
    constexpr double valueSize = 1.8;
    UseFixedFont(widget);
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * valueSize);
    widget->setFont(font);
}

void UseFixedFont(QWidget* widget) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(widget->font().pointSizeF());
    widget->setFont(font);
}

}  // namespace vx3260
