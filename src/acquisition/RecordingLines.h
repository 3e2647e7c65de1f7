// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "acquisition/Recording.h"
#include "acquisition/RecordingIntervals.h"
#include "analysis/ConversionConditions.h"

namespace vx3260 {

/// How the lines of a recording look. Volts have two digits of the size of a code, means four.
class RecordingLines {
  public:
    /// The conditions of the recorded converters. `sensorSlope`, in millivolts per kelvin, is
    /// given where the aux converter reads the temperature sensor.
    RecordingLines(const std::vector<ConversionConditions>& conditions,
                   std::optional<float> sensorSlope);

    std::string CodeColumns() const;
    std::string IntervalColumns() const;

    std::string Line(const RecordingMoment& moment, const RecordedCode& recorded) const;
    std::string Line(const RecordingMoment& start, Converter converter,
                     const IntervalFigures& figures) const;

  private:
    struct ConverterLine {
        ConversionConditions conditions;
        int decimals;  ///< of volts
    };

    const ConverterLine& Of(Converter converter) const;
    std::string TemperatureColumn() const { return sensorSlope_ ? ",temperature_c" : ""; }
    std::string Temperature(const ConversionConditions& conditions, double code) const;

    std::vector<ConverterLine> converters_;
    std::optional<float> sensorSlope_;
};

}  // namespace vx3260
