// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QLatin1String>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "link/BlockConditions.h"

/// The conditions of a block as JSON, and the file that keeps them beside a data file. Its fields
/// are described in docs/conditions-file.md.
namespace vx3260 {

/// The name of the file that belongs to a data file.
std::string ConditionsPath(const std::string& dataPath);

/// "complete", "timed-out" or "stopped".
QLatin1String OutcomeName(ReadingEnd outcome);

/// The conditions, without the codes that they belong to. What is unknown is null.
QJsonObject ConditionsObject(const BlockConditions& conditions);

/// The contents of a conditions file for a block of these codes.
std::string FormatConditions(const BlockConditions& conditions,
                             std::span<const std::int32_t> codes);

/// The conditions in a text of that form. Throws BadDataError, whose message follows the name of
/// the file, for any other text, for that of a newer version and for that of other codes.
BlockConditions ParseConditions(const std::string& text, std::span<const std::int32_t> codes);

struct LoadedConditions {
    std::optional<BlockConditions> conditions;
    std::string warning;  ///< why the file was not used; empty if it was, or if none exists
};

/// The conditions beside a data file with these codes, which are used for a block of `converter`.
/// Throws nothing: the block is good without them.
LoadedConditions LoadConditions(const std::string& dataPath, Converter converter,
                                std::span<const std::int32_t> codes);

}  // namespace vx3260
