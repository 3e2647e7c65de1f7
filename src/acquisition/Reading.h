// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "acquisition/ConverterReader.h"
#include "link/CodeBlock.h"

namespace vx3260 {

enum class ReadingEnd {
    Complete,
    TimedOut,  ///< data-ready did not come
    Stopped,   ///< stopRequested said so after the last read
};

/// How the ends that are no success are told.
inline constexpr std::string_view TimeoutText = "Error Reading Data from VX3260";
inline constexpr std::string_view TimeoutDetail =
    "No result became ready. Check the cable, the board's power, the mode register and the printer "
    "port. The chip still waits for the clocks of this access: a software reset brings the "
    "interface back in step.";
inline constexpr std::string_view StoppedText = "User Interruption of Reading";

/// The detail of a time-out: what the port has to tell of a failure of its own, then TimeoutDetail.
std::string TimeoutDetailOf(const ParallelPort& port);

/// What is told where the converter is not enabled: "Enable Main ADC before reading Data".
std::string DisabledText(Converter converter);

/// What the caller does between the reads; each may be left empty.
struct ReadingHooks {
    std::function<void()> beforeEach{};
    std::function<bool()> stopRequested{};
};

/// Checks how many codes a block is asked for. Throws SubscriptError below 1.
void CheckBlockSize(std::int16_t size);

/// Reads `size` codes into the block, whose old contents are lost. `block.count` is the number of
/// the code being read, so after the end that of the codes in the block; after a time-out the last
/// of them is ReadTimeout. Throws as CheckBlockSize does, the old block untouched.
ReadingEnd ReadBlock(ConverterReader& reader, CodeBlock block, std::int16_t size,
                     const ReadingHooks& hooks);

/// Takes codes from `read` and hands each to `show` until `read` gives ReadTimeout or a stop.
ReadingEnd StreamCodes(const std::function<std::int32_t()>& read,
                       const std::function<void(std::int32_t)>& show, const ReadingHooks& hooks);

}  // namespace vx3260
