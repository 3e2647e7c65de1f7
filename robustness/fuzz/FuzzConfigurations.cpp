// SPDX-License-Identifier: GPL-3.0-or-later
// Saved configurations: what was read, written and read again is the same, but for the levels of
// input pins, which are not written.

#include "Fuzzing.h"
#include "configuration/ConfigurationFile.h"
#include "numbers/FileErrors.h"

using namespace vx3260;
using fuzzing::Require;

namespace {

void RequireSame(const Configuration& left, const Configuration& right) {
    Require(left.size() == right.size(), "the number of registers is kept");
    for (std::size_t i = 0; i < left.size(); ++i) {
        const auto& [description, value, bits] = left[i];
        const std::int32_t kept = bits & ComparableBits(description, value);
        Require(right[i].description.name == description.name, "the registers are kept");
        Require(right[i].bits == kept, "the bits that count are kept");
        Require((right[i].value & kept) == (value & kept), "the values are kept");
    }
    Require(DifferencesBetween(left, right).empty(), "nothing differs");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Configuration configuration;
    try {
        configuration = ParseConfiguration(fuzzing::TextOf(data, size), "input");
    } catch (const BadDataError&) {
        return 0;
    }
    const std::string text =
        ConfigurationText(configuration, {.program = "program"}, Coefficients::Include);
    const Configuration again = ParseConfiguration(text, "text");
    RequireSame(configuration, again);
    Require(ConfigurationText(again, {.program = "program"}, Coefficients::Include) == text,
            "the same text is written again");
    return 0;
}
