// SPDX-License-Identifier: GPL-3.0-or-later
// Conditions files of a fixed block: what was read, written and read again is the same.

#include "Fuzzing.h"
#include "files/ConditionsFile.h"
#include "link/RegisterFields.h"
#include "numbers/FileErrors.h"

using namespace vx3260;
using fuzzing::Require;

namespace {

/// The block of the files in the corpus, which have its checksum.
constexpr std::int32_t codes[] = {8388608, 0, -5};

void RequireSame(const BlockConditions& left, const BlockConditions& right) {
    Require(left.program == right.program, "the program is kept");
    Require(left.board == right.board, "the board is kept");
    Require(left.converter == right.converter, "the converter is kept");
    Require(left.start == right.start && left.end == right.end, "the times are kept");
    Require(left.outcome == right.outcome, "the outcome is kept");
    Require(left.referenceVoltage == right.referenceVoltage, "the reference is kept");
    Require(left.meanInterval == right.meanInterval, "the interval is kept");
    Require(left.missedConversions == right.missedConversions, "the missed ones are kept");
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        Require(left.registers.ValueOf(description.access) ==
                    right.registers.ValueOf(description.access),
                "the registers are kept");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    BlockConditions conditions;
    try {
        conditions = ParseConditions(std::string(fuzzing::TextOf(data, size)), codes);
    } catch (const BadDataError&) {
        return 0;
    }
    Require(!conditions.referenceVoltage || *conditions.referenceVoltage > 0,
            "a reference is above 0");
    const std::string written = FormatConditions(conditions, codes);
    RequireSame(conditions, ParseConditions(written, codes));
    return 0;
}
