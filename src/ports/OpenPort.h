// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "link/BoardLines.h"
#include "link/ParallelPort.h"
#include "ports/FaultyPort.h"
#include "ports/ReadPace.h"
#include "simulator/SimulatedBoard.h"

namespace vx3260 {

/// The largest base address for direct access: the address of a port's last register is a 16-bit
/// number with a sign too.
inline constexpr std::int32_t MaxDirectAddress =
    std::numeric_limits<std::int16_t>::max() - (BoardLines::RegisterCount - 1);

/// Whether real ports are devices, each with a path, that can also be reached directly. Elsewhere
/// a library has them, and its first is taken.
#if defined(__linux__)
inline constexpr bool RealPortsAreDevices = true;
#else
inline constexpr bool RealPortsAreDevices = false;
#endif

/// How a real port's registers are reached.
enum class PortMethod {
    Driver,  ///< through the system's driver
    Direct,  ///< by the PC's I/O instructions; for the superuser
};

/// Which port the user asked for.
struct PortChoice {
    bool simulated = false;
    std::uint64_t seed = SimulatedBoard::DefaultSeed;  ///< of the simulated board's noise
    Faults faults{};
    std::string device{};  ///< path of a real port; the first there is when empty
    PortMethod method = PortMethod::Driver;
    std::optional<std::int32_t> address{};                ///< base address, for direct access
    std::chrono::nanoseconds pollTime = DefaultPollTime;  ///< minimum time of a real port's read
    std::string traceFile{};                              ///< path; no trace when empty
};

struct OpenedPort {
    std::unique_ptr<ParallelPort> port;
    std::string boardLabel;           ///< "Simulated board", or empty for a real port
    std::vector<std::string> faults;  ///< names of those that the simulated board has
};

/// Opens the chosen port. Opening never fails: an unavailable port is detected when it is claimed.
/// `portAddress`, which outlives the port, is the base address in use, which a trace follows.
/// Throws FileAccessError when the trace cannot be written; its time is the board's.
OpenedPort OpenPort(const PortChoice& choice, const std::int16_t& portAddress);

/// Opens a port as OpenPort does.
using PortOpener = std::function<OpenedPort(const PortChoice&, const std::int16_t&)>;

/// Whether a port can be claimed.
enum class PortClaim { Possible, Failed, NotTried };

/// A port of this machine as `ports` lists it.
struct PortListing {
    std::string name;           ///< as --port takes it, where ports are devices; "simulated"
    std::int32_t address = 0;   ///< base I/O address; 0 where it is not known
    std::string permissions{};  ///< "rw-rw---- root lp"; empty for a port without
    PortClaim claim = PortClaim::Possible;
    /// Why it cannot be claimed; of a chip with lines, what it is and who holds lines of it.
    std::string remarks{};
};

/// The ports there are. Printer ports are claimed, those that are devices for a moment; chips with
/// lines are not, because that would drive the lines. The simulated one alone where that was
/// chosen.
std::vector<PortListing> ListPorts(const PortChoice& choice);

/// The names of the real ports there are, as --port takes them. Nothing is opened.
std::vector<std::string> PortNames();

/// What to do where there is no port.
std::string NoPortDetail();

}  // namespace vx3260
