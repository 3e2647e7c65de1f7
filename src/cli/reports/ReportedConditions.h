// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <optional>
#include <span>

#include "analysis/BlockWarnings.h"
#include "analysis/CodeScale.h"
#include "link/BlockConditions.h"

/// What the reports of figures share.
namespace vx3260 {

inline constexpr const char* NotDefined = "not defined";

/// The size of a code by ConditionValues.
CodeScale ReportedScale(const ConversionConditions& conditions);

/// Converter, reference voltage, input range, polarity and the size of a code.
QJsonObject ConditionsObject(const ConversionConditions& conditions);

/// How the block was read, as a conditions file has it; null where unknown.
QJsonValue ReadingValue(const std::optional<BlockConditions>& reading);

/// Objects with `kind`, `text` and, where it counts, `count`.
QJsonArray WarningsValue(std::span<const BlockWarning> warnings);

}  // namespace vx3260
