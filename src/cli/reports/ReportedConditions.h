// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>

#include "analysis/CodeScale.h"

/// What the reports of noise over frequency and over time share.
namespace vx3260 {

inline constexpr const char* NotDefined = "not defined";

/// The size of a code by ConditionValues.
CodeScale ReportedScale(const ConversionConditions& conditions);

/// Converter, reference voltage, input range, polarity and the size of a code.
QJsonObject ConditionsObject(const ConversionConditions& conditions);

}  // namespace vx3260
