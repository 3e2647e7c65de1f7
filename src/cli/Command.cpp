#include "cli/Command.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>
#include <vector>

namespace vx3260 {
namespace {

constexpr Converter offeredConverters[] = {Converter::Main};

std::vector<std::string> OfferedNames() {
    std::vector<std::string> names;
    std::transform(std::begin(offeredConverters), std::end(offeredConverters),
                   std::back_inserter(names), CommandLineName);
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

/// A count that is far too large is no wrong word: whoever takes the count refuses it.
std::int64_t ToCount(const std::string& digits) {
    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t count = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    if (result.ec == std::errc::result_out_of_range) {
        return digits.starts_with('-') ? Limits::min() : Limits::max();
    }
    return count;
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
                const auto* const found = std::find_if(
                    std::begin(offeredConverters), std::end(offeredConverters),
                    [&name](Converter offered) { return CommandLineName(offered) == name; });
                converter = *found;
            },
            "Which converter")
        ->check(CLI::IsMember(OfferedNames()))
        ->required();
}

CLI::Option* AddCount(CLI::App& parser, std::int64_t& count) {
    return parser
        .add_option_function<std::string>(
            "--count", [&count](const std::string& digits) { count = ToCount(digits); },
            "How many codes to read")
        ->type_name("N")
        ->check(CLI::Validator(RefuseOtherThanDecimal, ""))
        ->default_str(std::to_string(count));
}

CLI::Option* AddFormat(CLI::App& parser, ReportFormat& format) {
    const std::string text = "text";
    const std::string json = "json";
    return parser
        .add_option_function<std::string>(
            "--format",
            [&format, json](const std::string& name) {
                format = name == json ? ReportFormat::Json : ReportFormat::Text;
            },
            "How to print the results")
        ->check(CLI::IsMember({text, json}))
        ->default_str(text);
}

CLI::Option* AddHex(CLI::App& parser, Notation& notation, const std::string& description) {
    return parser.add_flag_callback(
        "--hex", [&notation] { notation = Notation::Hexadecimal; }, description);
}

}  // namespace vx3260
