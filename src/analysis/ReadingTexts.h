// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/ConversionConditions.h"
#include "link/BlockConditions.h"

/// How a block was read, in words, for the forms, the command line and exported files alike.
namespace vx3260 {

/// "Read at ± 2.56V, bipolar, reference 2.5 V ...", the rate, the time and the board, one line
/// each, as far as known; "Conditions of the reading unknown" where nothing is.
std::vector<std::string> ReadingLines(const std::optional<BlockConditions>& reading);

/// What has changed since the reading, where that changes the volts: "Read at ± 2.56V, bipolar; the
/// chip is now at ± 20 mV: the volts below use the chip's present range". Empty where nothing has.
std::string ChangeSinceReading(const ConversionConditions& own,
                               const ConversionConditions& present);

/// The same where options of the command line say otherwise than the conditions of the reading.
std::string ChangeByOptions(const ConversionConditions& own, const ConversionConditions& given);

/// "Simulated board with bit-flip=5", "board on parport0".
std::string BoardText(const BoardName& board);

}  // namespace vx3260
