// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QStringList>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vx3260 {

/// UTF-8 as Qt has it.
inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text);
}

/// Lines of UTF-8 as Qt has them.
QStringList ToQStrings(const std::vector<std::string>& lines);

/// Shows what makes a block unfit, a paragraph each; hides the label where there is nothing.
void ShowWarnings(QLabel* label, const std::vector<std::string>& warnings);

/// Tool tip and accessible description of a control that shows a number in hexadecimal: they say so
/// and give the decimal number.
void ExplainHex(QWidget* control, std::int32_t value);

/// Shows a number in hexadecimal, as `text` has it, with ExplainHex.
void ShowHex(QLabel* label, const QString& text, std::int32_t value);

/// The same, with HexText of the number.
void ShowHex(QLabel* label, std::int32_t value);

/// Shows a number in decimal; tool tip and accessible description say so and give it in
/// hexadecimal.
void ShowDecimal(QLabel* label, std::int32_t value);

}  // namespace vx3260
