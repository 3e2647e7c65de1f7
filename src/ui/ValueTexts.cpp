// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ValueTexts.h"

#include <QCoreApplication>

#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

void Explain(QWidget* control, const QString& explanation) {
    control->setToolTip(explanation);
    control->setAccessibleDescription(explanation);
}

}  // namespace

QStringList ToQStrings(const std::vector<std::string>& lines) {
    QStringList texts;
    for (const std::string& line : lines) {
        texts.append(QString::fromStdString(line));
    }
    return texts;
}

void ShowWarnings(QLabel* label, const std::vector<std::string>& warnings) {
    QStringList lines;
    for (const QString& warning : ToQStrings(warnings)) {
        lines.append(QCoreApplication::translate("ValueTexts", "Warning: %1").arg(warning));
    }
    label->setText(lines.join(QLatin1Char('\n')));
    label->setVisible(!lines.isEmpty());
}

void ExplainHex(QWidget* control, std::int32_t value) {
    Explain(control,
            QCoreApplication::translate("ValueTexts", "hexadecimal; decimal %1").arg(value));
}

void ShowHex(QLabel* label, const QString& text, std::int32_t value) {
    label->setText(text);
    ExplainHex(label, value);
}

void ShowHex(QLabel* label, std::int32_t value) {
    ShowHex(label, QString::fromStdString(HexText(value)), value);
}

void ShowDecimal(QLabel* label, std::int32_t value) {
    label->setText(QString::number(value));
    Explain(label, QCoreApplication::translate("ValueTexts", "decimal; hexadecimal %1")
                       .arg(QString::fromStdString(HexText(value))));
}

}  // namespace vx3260
