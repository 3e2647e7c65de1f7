// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "acquisition/ConverterReader.h"
#include "acquisition/Reading.h"
#include "cli/board/BoardSession.h"
#include "link/BlockConditions.h"
#include "link/Converter.h"
#include "options/ExitCodes.h"

namespace vx3260 {

/// Puts the chip into continuous conversion where it is not, and says so on `err`. Throws
/// CommandError when the mode register does not read back as written: no board answers.
void EnsureContinuousConversion(Services& services, std::ostream& err);

/// Throws CommandError when the converter is disabled, by what the reader's ReadControls found.
void RequireEnabled(Services& services, const ConverterReader& reader, Converter converter);

/// The outcome of reading a block.
struct BlockReading {
    std::vector<std::int32_t> codes;  ///< without the value of a time-out
    BlockConditions conditions;       ///< with a time for each code
    bool overRange = false;           ///< the status register's error bit after the last code
};

/// What is to be read.
struct BlockRequest {
    Converter converter;
    std::int16_t count;      ///< 1 to 32767
    float referenceVoltage;  ///< volts
};

/// Reads a block from a chip in continuous conversion: all registers, then the codes, then the
/// status register. A time-out and a stop are reported on `streams.err`. Throws CommandError when
/// the converter is disabled or the data-ready line is stuck low.
BlockReading ReadCodes(Services& services, const CliStreams& streams, const BlockRequest& request,
                       const std::function<bool()>& stopRequested);

/// Prints each of the texts after "Warning: ".
void PrintWarnings(const std::vector<std::string>& warnings, std::ostream& err);

/// The exit code of a command whose reading ended this way. A stop requested after the reading,
/// while its codes were being written, counts too, because it is meant for a whole script.
ExitCode ExitCodeOf(ReadingEnd end, bool stopRequested);

}  // namespace vx3260
