// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Assignment.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "link/FilterRate.h"
#include "numbers/WholeNumber.h"

namespace vx3260 {
namespace {

using RegisterMap::Field;
using RegisterMap::FieldValue;

/// The codes that may be written to a field.
struct CodeLimits {
    std::int64_t min;
    std::int64_t max;

    bool Include(std::int64_t code) const { return min <= code && code <= max; }
};

/// Fields that do not accept all codes that fit their bits.
constexpr struct {
    std::string_view field;
    CodeLimits limits;
} narrowerLimits[] = {
    {RegisterMap::OperatingMode.name, {0, CalibrationModes.front().code - 1}},
    {RegisterMap::FilterWord.name, {MinFilterWord, MaxFilterWord}},
};

CodeLimits LimitsOf(const Field& field) {
    const auto* const narrower =
        std::find_if(std::begin(narrowerLimits), std::end(narrowerLimits),
                     [&field](const auto& entry) { return entry.field == field.name; });
    return narrower == std::end(narrowerLimits) ? CodeLimits{0, field.LargestCode()}
                                                : narrower->limits;
}

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

[[noreturn]] void Refuse(const std::string& message) {
    throw AssignmentError(message);
}

std::optional<std::int64_t> CodeIn(const Field& field, std::string_view text) {
    const auto named = std::find_if(field.values.begin(), field.values.end(),
                                    [text](const FieldValue& v) { return v.name == text; });
    if (named != field.values.end()) {
        return named->code;
    }
    // It could be meant octal.
    return HasLeadingZero(text) ? std::nullopt : WholeNumber(text);
}

std::string Joined(const std::vector<std::string>& texts, std::string_view separator) {
    std::string joined;
    for (const std::string& text : texts) {
        joined.append(joined.empty() ? "" : separator).append(text);
    }
    return joined;
}

std::string NumberRange(const Field& field) {
    const CodeLimits limits = LimitsOf(field);
    return std::to_string(limits.min) + " to " + std::to_string(limits.max);
}

void RefuseCalibration(const Field& field, std::optional<std::int64_t> code) {
    const auto mode = std::find_if(CalibrationModes.begin(), CalibrationModes.end(),
                                   [code](const FieldValue& v) { return v.code == code; });
    if (field.name == RegisterMap::OperatingMode.name && mode != CalibrationModes.end()) {
        Refuse("mode=" + std::string(mode->name) +
               " starts a calibration, which has a command of its own: calibrate " +
               std::string(mode->name));
    }
}

std::int32_t CodeToWrite(const Field& field, std::string_view text) {
    const std::optional<std::int64_t> code = CodeIn(field, text);
    RefuseCalibration(field, code);
    if (!code || !LimitsOf(field).Include(*code)) {
        std::vector<std::string> accepted = WritableNames(field);
        accepted.push_back("a number from " + NumberRange(field));
        Refuse(Quoted(text) + " is not a valid value for " + std::string(field.name) +
               "; it takes: " + Joined(accepted, ", "));
    }
    return static_cast<std::int32_t>(*code);
}

}  // namespace

Assignment ParseAssignment(const RegisterMap::RegisterDescription& description,
                           std::string_view text) {
    const std::size_t equals = text.find('=');
    const std::string_view name = text.substr(0, equals);
    const auto field = std::find_if(description.fields.begin(), description.fields.end(),
                                    [name](const Field& f) { return f.name == name; });
    if (equals == std::string_view::npos || field == description.fields.end()) {
        std::vector<std::string> names;
        std::transform(description.fields.begin(), description.fields.end(),
                       std::back_inserter(names),
                       [](const Field& f) { return std::string(f.name); });
        Refuse(Quoted(text) + " is not a FIELD=VALUE of the register " +
               std::string(description.name) + "; it has the fields: " + Joined(names, ", "));
    }
    return {*field, CodeToWrite(*field, text.substr(equals + 1))};
}

std::vector<std::string> WritableNames(const Field& field) {
    std::vector<std::string> names;
    for (const FieldValue& value : field.values) {
        if (LimitsOf(field).Include(value.code)) {
            names.emplace_back(value.name);
        }
    }
    return names;
}

std::string ValueHelp(const Field& field) {
    return field.values.empty() ? NumberRange(field) : Joined(WritableNames(field), "|");
}

}  // namespace vx3260
