// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/RegistersReport.h"

#include <algorithm>

#include "cli/reports/JsonText.h"
#include "configuration/ConfigurationTexts.h"
#include "files/RegisterJson.h"
#include "link/RegisterLookup.h"
#include "numbers/Columns.h"

namespace vx3260 {
namespace {

constexpr std::string_view indent = "  ";

/// Of the first column, with the two spaces that separate it from the second.
std::size_t NameWidth(std::span<const RegisterReading> readings) {
    std::size_t width = 0;
    for (const RegisterReading& reading : readings) {
        width = std::max(width, reading.description.name.size());
        for (const RegisterMap::Field& field : reading.description.fields) {
            width = std::max(width, indent.size() + field.name.size());
        }
    }
    return width + 2;
}

std::string HexOf(const RegisterReading& reading) {
    return RegisterHex(reading.value, reading.description.access);
}

std::string FieldText(const RegisterMap::Field& field, const RegisterReading& reading) {
    const std::int32_t code = field.CodeIn(reading.value);
    return RegisterMap::TextOfCode(field, code) + RateRemark(reading);
}

}  // namespace

std::string RegistersText(std::span<const RegisterReading> readings) {
    constexpr std::size_t hexWidth = std::string_view("0x000000").size() + 2;
    const std::size_t nameWidth = NameWidth(readings);
    std::string text;
    for (const RegisterReading& reading : readings) {
        text += Padded(reading.description.name, nameWidth) + Padded(HexOf(reading), hexWidth) +
                std::string(reading.description.title) + "\n";
        for (const RegisterMap::Field& field : reading.description.fields) {
            text += Padded(std::string(indent) + std::string(field.name), nameWidth) +
                    FieldText(field, reading) + "\n";
        }
    }
    return text;
}

std::string RegistersJson(std::span<const RegisterReading> readings, std::string_view board) {
    QJsonObject report{{"board", BoardValue(board)}};
    for (const RegisterReading& reading : readings) {
        report[QString::fromUtf8(reading.description.name)] = RegisterObject(reading);
    }
    return JsonText(report);
}

}  // namespace vx3260
