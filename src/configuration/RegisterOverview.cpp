// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/RegisterOverview.h"

#include <algorithm>

#include "configuration/ConfigurationTexts.h"
#include "link/Register.h"
#include "link/RegisterLookup.h"
#include "numbers/Columns.h"

namespace vx3260 {
namespace {

std::string ValueOf(const RegisterMap::Field& field, const RegisterReading& reading) {
    return FieldValueText(field, field.CodeIn(reading.value)) + RateRemark(reading);
}

/// The value at the earlier reading, where it was another.
std::optional<std::string> ValueBefore(const RegisterMap::Field& field, const RegisterReading& now,
                                       std::span<const RegisterReading> before) {
    const auto earlier = std::ranges::find_if(before, [&now](const RegisterReading& reading) {
        return reading.description.name == now.description.name;
    });
    const bool changed =
        earlier != before.end() && ((earlier->value ^ now.value) & field.mask) != 0;
    return changed ? std::optional(ValueOf(field, *earlier)) : std::nullopt;
}

/// The value in a configuration, where that is another.
std::optional<std::string> SavedValue(const RegisterMap::Field& field,
                                      std::span<const FieldDifference> differences) {
    const auto found = std::ranges::find_if(
        differences, [&field](const FieldDifference& d) { return &d.field == &field; });
    return found == differences.end() ? std::nullopt
                                      : std::optional(FieldValueText(field, found->right));
}

Configuration SettingsIn(std::span<const RegisterReading> readings) {
    Configuration configuration;
    for (const RegisterReading& reading : readings) {
        configuration.push_back({reading.description, reading.value});
    }
    return configuration;
}

}  // namespace

std::vector<RegisterReading> ReadAllRegisters(ParallelPort& parallelPort,
                                              const std::int16_t& portAddress) {
    std::vector<RegisterReading> readings;
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        readings.push_back(
            {description, ReadRegister(parallelPort, portAddress, description.access)});
    }
    return readings;
}

std::vector<OverviewRow> OverviewOf(std::span<const RegisterReading> now,
                                    std::span<const RegisterReading> before,
                                    const Configuration& saved) {
    std::vector<OverviewRow> rows;
    for (const RegisterReading& reading : now) {
        const std::vector<FieldDifference> differences =
            DifferencesBetween(SettingsIn({&reading, 1}), saved);
        for (const RegisterMap::Field& field : reading.description.fields) {
            rows.push_back({.reading = reading,
                            .field = field,
                            .value = ValueOf(field, reading),
                            .before = ValueBefore(field, reading, before),
                            .saved = SavedValue(field, differences)});
        }
    }
    return rows;
}

std::string BitsText(const RegisterReading& reading) {
    constexpr int group = 4;
    std::string text;
    for (int bit = reading.description.access.wordLength - 1; bit >= 0; --bit) {
        text += (reading.value >> bit & 1) != 0 ? '1' : '0';
        text += bit != 0 && bit % group == 0 ? " " : "";
    }
    return text;
}

std::string OverviewText(std::span<const OverviewRow> rows, bool withSaved) {
    std::vector<std::vector<std::string>> cells{{"register", "contents", "bits", "field", "value"}};
    if (withSaved) {
        cells.front().emplace_back("file");
    }
    for (const OverviewRow& row : rows) {
        const RegisterMap::RegisterDescription& description = row.reading.description;
        const bool first = row.IsFirst();
        cells.push_back({first ? std::string(description.name) : "",
                         first ? RegisterHex(row.reading.value, description.access) : "",
                         first ? BitsText(row.reading) : "", std::string(row.field.name),
                         row.value});
        if (withSaved) {
            cells.back().push_back(row.saved.value_or(""));
        }
    }
    return LeftAlignedTable(cells);
}

}  // namespace vx3260
