// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ValueTexts.h"

#include <QCoreApplication>

#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

void Show(QLabel* label, const QString& text, const QString& explanation) {
    label->setText(text);
    label->setToolTip(explanation);
    label->setAccessibleDescription(explanation);
}

}  // namespace

void ShowHex(QLabel* label, const QString& text, std::int32_t value) {
    Show(label, text,
         QCoreApplication::translate("ValueTexts", "hexadecimal; decimal %1").arg(value));
}

void ShowHex(QLabel* label, std::int32_t value) {
    ShowHex(label, QString::fromStdString(HexText(value)), value);
}

void ShowDecimal(QLabel* label, std::int32_t value) {
    Show(label, QString::number(value),
         QCoreApplication::translate("ValueTexts", "decimal; hexadecimal %1")
             .arg(QString::fromStdString(HexText(value))));
}

}  // namespace vx3260
