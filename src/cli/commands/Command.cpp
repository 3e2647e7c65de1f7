// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/Command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <vector>

#include "cli/reports/ConverterName.h"
#include "numbers/WholeNumber.h"

namespace vx3260 {
namespace {

constexpr Converter converters[] = {Converter::Main, Converter::Aux};

std::vector<std::string> ConverterNames() {
    std::vector<std::string> names;
    std::transform(std::begin(converters), std::end(converters), std::back_inserter(names),
                   CommandLineName);
    return names;
}

/// The parser alone would take 010 for 8 and 0x10 for 16.
std::string RefuseOtherThanDecimal(const std::string& text) {
    return DecimalNumber(text) && !HasLeadingZero(text) ? ""
                                                        : "'" + text + "' is not a decimal integer";
}

}  // namespace

Command::Command(CLI::App& program, const std::string& name, const std::string& description)
    : parser_(*program.add_subcommand(name, description)) {}

bool Command::Chosen() const {
    return parser_.parsed();
}

void AddConverter(CLI::App& parser, Converter& converter) {
    parser
        .add_option_function<std::string>(
            "converter",
            [&converter](const std::string& name) {
                converter =
                    *std::find_if(std::begin(converters), std::end(converters),
                                  [&name](Converter c) { return CommandLineName(c) == name; });
            },
            "Which converter")
        ->check(CLI::IsMember(ConverterNames()))
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

CLI::Option* AddFormat(CLI::App& parser, ReportFormat& format, ReportFormat other) {
    const std::string text = "text";
    return parser
        .add_option_function<std::string>(
            "--format",
            [&format, other, text](const std::string& name) {
                format = name == text ? ReportFormat::Text : other;
            },
            "How to print the results")
        ->check(CLI::IsMember({text, std::string(other == ReportFormat::Json ? "json" : "csv")}))
        ->default_str(text);
}

CLI::Option* AddHex(CLI::App& parser, Notation& notation, const std::string& description) {
    return parser.add_flag_callback(
        "--hex", [&notation] { notation = Notation::Hexadecimal; }, description);
}

}  // namespace vx3260
