// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/Command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <limits>
#include <map>
#include <vector>

#include "analysis/Rate.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "numbers/RuntimeError.h"
#include "numbers/WholeNumber.h"

namespace vx3260 {
namespace {

/// The parser alone would take 010 for 8 and 0x10 for 16.
std::string RefuseOtherThanDecimal(const std::string& text) {
    return DecimalNumber(text) && !HasLeadingZero(text) ? ""
                                                        : "'" + text + "' is not a decimal integer";
}

/// Throws if the text is not a number representable as float.
float ToVolts(const std::string& text) {
    const double volts = TextToDouble(text);
    if (volts > std::numeric_limits<float>::max()) {
        throw OverflowError();
    }
    return static_cast<float>(volts);
}

/// What a reference can be, in volts; generously, so that only slips are refused.
constexpr double minReference = 0.1;
constexpr double maxReference = 10;

std::string RefuseOtherThanVoltage(const std::string& text) {
    try {
        if (const double volts = TextToDouble(text);
            volts >= minReference && volts <= maxReference) {
            return "";
        }
    } catch (const RuntimeError&) {
        // Refused below, like a number outside the range.
    }
    return "'" + text + "' is not a voltage from " + ShortestText(minReference) + " to " +
           ShortestText(maxReference);
}

std::string RefuseOtherThanRate(const std::string& text) {
    try {
        if (IsRate(TextToDouble(text))) {
            return "";
        }
    } catch (const RuntimeError&) {
        // Refused below, like a number beyond the limits.
    }
    return "'" + text + "' is not a number from " + ShortestText(MinRate) + " to " +
           ShortestText(MaxRate);
}

std::string FormatName(ReportFormat format) {
    switch (format) {
        case ReportFormat::Json:
            return "json";
        case ReportFormat::Csv:
            return "csv";
        default:
            return "text";
    }
}

}  // namespace

Command::Command(CLI::App& program, const std::string& name, const std::string& description)
    : parser_(*program.add_subcommand(name, description)) {}

bool Command::Chosen() const {
    return parser_.parsed();
}

CLI::Option* AddWord(CLI::App& parser, const std::string& option,
                     const std::vector<std::string>& words, const std::string& defaultWord,
                     const std::function<void(const std::string&)>& use,
                     const std::string& description) {
    return parser.add_option_function<std::string>(option, use, description)
        ->check(CLI::IsMember(words))
        ->default_str(defaultWord);
}

void AddConverter(CLI::App& parser, Converter& converter) {
    parser
        .add_option_function<std::string>(
            "converter",
            [&converter](const std::string& name) { converter = ConverterNamed(name).value(); },
            "Which converter")
        ->check(CLI::IsMember({std::string(MainTraits.word), std::string(AuxTraits.word)}))
        ->required();
}

CLI::Option* AddWholeNumber(CLI::App& parser, const std::string& name, std::int64_t& number,
                            const std::string& description) {
    return parser
        .add_option_function<std::string>(
            name, [&number](const std::string& digits) { number = *DecimalNumber(digits); },
            description)
        ->type_name("N")
        ->check(CLI::Validator(RefuseOtherThanDecimal, ""))
        ->default_str(std::to_string(number));
}

CLI::Option* AddCount(CLI::App& parser, std::int64_t& count) {
    return AddWholeNumber(parser, "--count", count, "How many codes to read");
}

CLI::Option* AddFormat(CLI::App& parser, ReportFormat& format,
                       std::initializer_list<ReportFormat> others) {
    std::map<std::string, ReportFormat> choices{
        {FormatName(ReportFormat::Text), ReportFormat::Text}};
    std::vector<std::string> names{FormatName(ReportFormat::Text)};
    for (const ReportFormat other : others) {
        names.push_back(FormatName(other));
        choices.emplace(names.back(), other);
    }
    return AddWord(
        parser, "--format", names, names.front(),
        [&format, choices](const std::string& name) { format = choices.at(name); },
        "How to print the results");
}

CLI::Option* AddReference(CLI::App& parser, float& volts) {
    return parser
        .add_option_function<std::string>(
            "--reference", [&volts](const std::string& text) { volts = ToVolts(text); },
            "Reference voltage")
        ->type_name("VOLTS")
        ->default_str(ShortestText(volts))
        ->check(CLI::Validator(RefuseOtherThanVoltage, ""));
}

CLI::Option* AddRate(CLI::App& parser, std::optional<double>& rate) {
    return parser
        .add_option_function<std::string>(
            "--rate", [&rate](const std::string& text) { rate = TextToDouble(text); },
            "Readings in a second that FILE was read with")
        ->type_name("HZ")
        ->check(CLI::Validator(RefuseOtherThanRate, ""));
}

CLI::Option* AddHex(CLI::App& parser, Notation& notation, const std::string& description) {
    return parser.add_flag_callback(
        "--hex", [&notation] { notation = Notation::Hexadecimal; }, description);
}

}  // namespace vx3260
