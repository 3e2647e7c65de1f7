// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/ReadingTexts.h"

#include <chrono>
#include <string_view>

#include "analysis/NoiseTexts.h"
#include "link/RegisterLookup.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

std::string RangeAndPolarity(const ConversionConditions& conditions) {
    const bool unipolar = conditions.polarity == Polarity::Unipolar;
    return RangeText(conditions) + (unipolar ? ", unipolar" : ", bipolar");
}

std::string FieldText(const RegisterMap::Field& field, std::int32_t value) {
    return RegisterMap::TextOfCode(field, field.CodeIn(value));
}

std::string ReferenceText(float volts) {
    return "reference " + ShortestText(volts) + " V";
}

/// Range, reference, input and what else the registers say of the signal's way.
std::string SettingsLine(const BlockConditions& reading) {
    std::string line;
    const auto add = [&line](const std::string& text) {
        line += (line.empty() ? "" : ", ") + text;
    };
    const std::optional<ConversionConditions> own = ConditionsOf(reading);
    add(own ? "Read at " + RangeAndPolarity(*own) : "Input range of the reading unknown");
    if (reading.referenceVoltage) {
        add(ReferenceText(*reading.referenceVoltage));
    }
    if (const std::optional<std::int32_t> control = reading.Control()) {
        const bool main = reading.converter == Converter::Main;
        add("channel " + UpperCase(FieldText(
                             main ? RegisterMap::MainChannel : RegisterMap::AuxChannel, *control)));
        if (main) {
            add(FieldText(RegisterMap::WordLength, *control) + " bits");
        }
    }
    if (const std::optional<std::int32_t> mode = reading.registers.ValueOf(RegisterMap::Mode)) {
        add(FieldText(RegisterMap::Buffering, *mode));
        add("CHCON " + FieldText(RegisterMap::Chcon, *mode));
    }
    return line;
}

/// By the filter register, and as measured.
std::string RateLine(const BlockConditions& reading) {
    constexpr int rateDecimals = 2;
    constexpr int intervalDigits = 6;
    constexpr double millisecondsPerSecond = 1e3;
    std::string line;
    if (const std::optional<std::int32_t> word = reading.registers.ValueOf(RegisterMap::Filter);
        word && reading.NominalRate()) {
        line = "Filter word " + std::to_string(*word) + ", " +
               FixedText(*reading.NominalRate(), rateDecimals) + " Hz";
    }
    if (reading.meanInterval) {
        line += (line.empty() ? "A" : "; a") + std::string(" reading every ") +
                SignificantText(*reading.meanInterval * millisecondsPerSecond, intervalDigits) +
                " ms";
    }
    return line;
}

std::string_view OutcomeText(ReadingEnd outcome) {
    switch (outcome) {
        case ReadingEnd::TimedOut:
            return "ended by a time-out";
        case ReadingEnd::Stopped:
            return "stopped by the user";
        default:
            return "complete";
    }
}

}  // namespace

std::string BoardText(const BoardName& board) {
    std::string text = board.label.empty() ? "board on " + board.port : board.label;
    for (const std::string& fault : board.faults) {
        text += (&fault == &board.faults.front() ? " with " : ", ") + fault;
    }
    return text;
}

std::vector<std::string> ReadingLines(const std::optional<BlockConditions>& reading) {
    if (!reading) {
        return {"Conditions of the reading unknown"};
    }
    std::vector<std::string> lines;
    for (const std::string& line : {SettingsLine(*reading), RateLine(*reading),
                                    TimeText(reading->start) + ", " + BoardText(reading->board) +
                                        ", " + std::string(OutcomeText(reading->outcome))}) {
        if (!line.empty()) {
            lines.push_back(line);
        }
    }
    return lines;
}

std::string ChangeByOptions(const ConversionConditions& own, const ConversionConditions& given) {
    const bool reference = own.referenceVoltage != given.referenceVoltage;
    if (RangeText(own) == RangeText(given) && !reference) {
        return "";
    }
    return "read at " + RangeAndPolarity(own) + ", " + ReferenceText(own.referenceVoltage) +
           "; the volts use " + RangeAndPolarity(given) + ", " +
           ReferenceText(given.referenceVoltage) + ", as the options say";
}

std::string ChangeSinceReading(const ConversionConditions& own,
                               const ConversionConditions& present) {
    const bool reference = own.referenceVoltage != present.referenceVoltage;
    if (RangeText(own) != RangeText(present)) {
        const std::string also = reference ? " and reference" : "";
        return "Read at " + RangeAndPolarity(own) + "; the chip is now at " + RangeText(present) +
               ": the volts below use the chip's present range" + also;
    }
    if (reference) {
        return "Read with a " + ReferenceText(own.referenceVoltage) + "; it is now " +
               ShortestText(present.referenceVoltage) +
               " V: the volts below use the present reference";
    }
    return "";
}

}  // namespace vx3260
