// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>
#include <vector>

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
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    const bool digits =
        text.size() > sign && text.find_first_not_of("0123456789", sign) == std::string::npos;
    const bool leadingZero = digits && text.size() > sign + 1 && text[sign] == '0';
    return digits && !leadingZero ? "" : "'" + text + "' is no whole decimal number";
}

/// A number that is far too large is no wrong word: whoever takes the number refuses it.
std::int64_t ToNumber(const std::string& digits) {
    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec == std::errc::result_out_of_range) {
        return digits.starts_with('-') ? Limits::min() : Limits::max();
    }
    return number;
}

}  // namespace

std::string CommandLineName(Converter converter) {
    return CLI::detail::to_lower(std::string(TraitsOf(converter).name));
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

CLI::Validator NotEmpty() {
    return {[](const std::string& name) { return name.empty() ? "the name is empty" : ""; }, ""};
}

CLI::Option* AddWholeNumber(CLI::App& parser, const std::string& name, std::int64_t& number,
                            const std::string& description) {
    return parser
        .add_option_function<std::string>(
            name, [&number](const std::string& digits) { number = ToNumber(digits); }, description)
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
