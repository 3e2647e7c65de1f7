// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/DifferencesReport.h"

#include <QJsonArray>
#include <vector>

#include "cli/reports/JsonText.h"
#include "configuration/ConfigurationTexts.h"
#include "numbers/Columns.h"

namespace vx3260 {
namespace {

std::string LeftText(const FieldDifference& difference) {
    return FieldValueText(difference.field, difference.left);
}

std::string RightText(const FieldDifference& difference) {
    return FieldValueText(difference.field, difference.right);
}

QString Text(std::string_view text) {
    return QString::fromUtf8(text);
}

}  // namespace

std::string DifferencesText(std::span<const FieldDifference> differences, const std::string& left,
                            const std::string& right) {
    if (differences.empty()) {
        return "";
    }
    std::vector<std::vector<std::string>> rows{{"register", "field", left, right}};
    for (const FieldDifference& difference : differences) {
        rows.push_back({std::string(difference.description.name),
                        std::string(difference.field.name), LeftText(difference),
                        RightText(difference)});
    }
    return LeftAlignedTable(rows);
}

std::string DifferencesJson(std::span<const FieldDifference> differences, const std::string& left,
                            const std::string& right) {
    QJsonArray array;
    for (const FieldDifference& difference : differences) {
        array.append(QJsonObject{{"register", Text(difference.description.name)},
                                 {"field", Text(difference.field.name)},
                                 {"left", Text(LeftText(difference))},
                                 {"right", Text(RightText(difference))}});
    }
    return JsonText({{"left", Text(left)}, {"right", Text(right)}, {"differences", array}});
}

std::string ChangesText(std::span<const FieldDifference> differences) {
    std::string text;
    for (const FieldDifference& difference : differences) {
        text += std::string(difference.description.name) + " " +
                std::string(difference.field.name) + ": " + LeftText(difference) + " -> " +
                RightText(difference) + "\n";
    }
    return text;
}

}  // namespace vx3260
