// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>

#include "link/Configuration.h"

namespace vx3260 {

/// What a command prints of fields that differ: a table with a column for each side, below their
/// names. Empty where nothing differs.
std::string DifferencesText(std::span<const FieldDifference> differences, const std::string& left,
                            const std::string& right);

/// The same as JSON: "differences", with "register", "field", "left" and "right"; and the names of
/// both sides.
std::string DifferencesJson(std::span<const FieldDifference> differences, const std::string& left,
                            const std::string& right);

/// The changes from left to right: "main-control range: 20mV -> 2.56V", a line each.
std::string ChangesText(std::span<const FieldDifference> differences);

}  // namespace vx3260
