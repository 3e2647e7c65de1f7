// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "link/Converter.h"
#include "link/RegisterRecord.h"
#include "link/UtcTime.h"

namespace vx3260 {

/// How the reading of a block ended.
enum class ReadingEnd {
    Complete,
    TimedOut,  ///< data-ready did not become active
    Stopped,   ///< the user stopped it
};

/// The label of a simulated board.
inline constexpr std::string_view SimulatedBoardLabel = "Simulated board";

/// The board that a block came from.
struct BoardName {
    std::string label{};                ///< SimulatedBoardLabel; empty for a real one
    std::string port{};                 ///< "parport0" or "port 0x378"
    std::vector<std::string> faults{};  ///< names of those that a simulated board had

    bool operator==(const BoardName&) const = default;
};

/// How a block of codes was read, as far as it is known.
struct BlockConditions {
    Converter converter = Converter::Main;
    RegisterSnapshot registers{};
    std::optional<float> referenceVoltage{};  ///< volts
    BoardName board{};
    UtcTime start{};
    UtcTime end{};
    ReadingEnd outcome = ReadingEnd::Complete;
    /// When each code was read, in seconds of the board's clock from the start on; empty if
    /// unknown.
    std::vector<double> seconds{};
    std::optional<double> meanInterval{};  ///< measured, seconds from one code to the next
    std::optional<std::int64_t> missedConversions{};  ///< not read, by the gaps between the times
    std::string program{};  ///< name and version of the program that read the block

    std::optional<std::int32_t> Control() const {
        return registers.ValueOf(TraitsOf(converter).control);
    }

    /// The update rate by the filter register, in hertz.
    std::optional<double> NominalRate() const;

    /// Seconds from one code to the next: measured, else by the filter register.
    std::optional<double> Interval() const;
};

}  // namespace vx3260
