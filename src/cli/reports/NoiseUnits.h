// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <string>

#include "analysis/CodeScale.h"

/// Figures and units that the reports of noise over frequency and over time share.
namespace vx3260 {

inline constexpr const char* NotDefined = "not defined";

/// The size of a code by ConditionValues.
CodeScale ReportedScale(const ConversionConditions& conditions);

/// Converter, reference voltage, input range, polarity and the size of a code.
QJsonObject ConditionsObject(const ConversionConditions& conditions);

/// To a few significant digits.
std::string FigureText(double value);

std::string HertzText(double hertz);                ///< "19.79 Hz"
std::string LsbText(double lsb);                    ///< "12.00 LSB"
std::string NoiseVoltsText(double volts);           ///< "3.662 uV"
std::string VoltsPerRootHertzText(double density);  ///< "1.164 uV/√Hz"

}  // namespace vx3260
