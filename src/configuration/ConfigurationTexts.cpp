// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ConfigurationTexts.h"

#include <bit>
#include <optional>
#include <string_view>

#include "analysis/ReadingTexts.h"
#include "link/FilterRate.h"
#include "link/RegisterLookup.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr std::int32_t largestDecimal = 0xFF;
constexpr int bitsOfDigit = 4;

/// Whether the contents are not those that a dead line gives.
bool HasUnlikeBits(const RegisterReading& reading) {
    const std::int32_t allOnes = (std::int32_t{1} << reading.description.access.wordLength) - 1;
    return reading.value != 0 && reading.value != allOnes;
}

struct Mismatch {
    std::string_view place;
    std::string expected;
    std::string found;
};

std::string MismatchText(const Mismatch& mismatch) {
    return std::string(mismatch.place) + ": expected " + mismatch.expected + ", found " +
           mismatch.found;
}

}  // namespace

std::vector<std::string> HeadLines(const ConfigurationHead& head) {
    if (!head.file.empty()) {
        return {"Configuration of the VX3260, from the file " + head.file,
                "Program: " + head.program};
    }
    return {"Configuration of the VX3260, " + TimeText(head.time),
            "Board: " + BoardText(head.board), "Program: " + head.program};
}

std::string FieldValueText(const RegisterMap::Field& field, std::int32_t code) {
    if (field.LargestCode() <= largestDecimal) {
        return RegisterMap::TextOfCode(field, code);
    }
    return PrefixedHex(code, std::popcount(static_cast<std::uint32_t>(field.mask)) / bitsOfDigit);
}

std::string RateRemark(const RegisterReading& reading) {
    const std::optional<double> rate = UpdateRate(reading);
    return rate ? " (" + FormatNumber(*rate, "0.0000") + " Hz)" : "";
}

std::string FieldsText(const RegisterReading& reading) {
    std::string text;
    for (const RegisterMap::Field& field : reading.description.fields) {
        text += (text.empty() ? "" : " ") + std::string(field.name) + "=" +
                FieldValueText(field, field.CodeIn(reading.value));
    }
    return text;
}

std::vector<std::string> MismatchLines(const RegisterMismatch& mismatch) {
    const RegisterMap::RegisterDescription& description = mismatch.wanted.description;
    const std::string wanted = RegisterMap::RegisterHex(mismatch.wanted.value, description.access);
    const std::string found = RegisterMap::RegisterHex(mismatch.readBack, description.access);
    const std::string contents = " (" + wanted + ", " + found + ")";
    const std::int32_t compared = ComparableBits(description, mismatch.wanted.value);
    std::vector<std::string> lines;
    for (const RegisterMap::Field& field : description.fields) {
        const std::int32_t expected = field.CodeIn(mismatch.wanted.value);
        const std::int32_t present = field.CodeIn(mismatch.readBack);
        if ((field.mask & compared) != 0 && expected != present) {
            std::string place(description.name);
            place.append(" ").append(field.name);
            lines.push_back(MismatchText({place, FieldValueText(field, expected),
                                          FieldValueText(field, present)}) +
                            contents);
        }
    }
    if (lines.empty()) {
        lines.push_back(MismatchText({description.name, wanted, found}) +
                        " in bits without a name");
    }
    return lines;
}

std::string RestoreReport(std::span<const RestoredRegister> restored, bool boardAnswers) {
    std::string fields;
    std::string confirmed;
    std::string others;
    bool modeIsSet = false;
    for (const RestoredRegister& reg : restored) {
        const RegisterMap::RegisterDescription& description = reg.wanted.description;
        const bool good =
            boardAnswers ? reg.Verified() : reg.verifiedAfterWrite && HasUnlikeBits(reg.wanted);
        std::string& names = good ? confirmed : others;
        names.append(names.empty() ? "" : ", ").append(description.name);
        modeIsSet = modeIsSet || (good && IsMode(description));
    }
    for (const RegisterMismatch& mismatch : MismatchesIn(restored)) {
        for (const std::string& line : MismatchLines(mismatch)) {
            fields += boardAnswers ? "  " + line + "\n" : "";
        }
    }
    return fields + "Written and verified: " + (confirmed.empty() ? "none" : confirmed) +
           (others.empty() ? ", but not compared at the end. "
                           : ". Not verified: " + others + ". ") +
           (modeIsSet ? "" : "The chip may be left in power-down. ");
}

}  // namespace vx3260
