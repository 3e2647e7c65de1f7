// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <vector>

#include "link/ParallelPort.h"
#include "link/RegisterReading.h"

namespace vx3260 {

/// All bits of a register.
inline constexpr std::int32_t AllBits = -1;

/// What a register is to hold, or held.
struct RegisterSetting {
    const RegisterMap::RegisterDescription& description;
    std::int32_t value;
    std::int32_t bits = AllBits;  ///< those of `value` that count
};

/// Registers that can be written, in the order of their addresses, each once at most.
using Configuration = std::vector<RegisterSetting>;

/// Reads all of them from the chip. No missing board is detected.
Configuration ReadConfiguration(ParallelPort& parallelPort, const std::int16_t& portAddress);

/// The registers read differently each time: what would be restored is not what they held.
class UnsteadyRegisters : public std::runtime_error {
  public:
    UnsteadyRegisters()
        : std::runtime_error("the registers read differently each time; check the cable") {}
};

/// The same, read until two readings agree, but for the levels of input pins. Throws
/// UnsteadyRegisters where they do not after some readings.
Configuration ReadSteadyConfiguration(ParallelPort& parallelPort, const std::int16_t& portAddress);

/// The same as a snapshot.
RegisterSnapshot SnapshotOf(const Configuration& configuration);

/// The registers of a snapshot that are known.
Configuration ConfigurationOf(const RegisterSnapshot& snapshot);

inline bool IsMode(const RegisterMap::RegisterDescription& description) {
    return description.access.readByte == RegisterMap::Mode.readByte;
}

/// Whether these are the contents of a calibration: a zero-scale or full-scale coefficient.
bool IsCoefficient(const RegisterMap::RegisterDescription& description);

/// The settings in the order in which they are written: registers that need power-down, then the
/// others, the mode register last.
Configuration InOrderOfWriting(const Configuration& configuration);

/// What became of a register that was written.
struct RestoredRegister {
    RegisterReading wanted;
    std::int32_t afterWrite;  ///< read back at once
    std::int32_t atEnd;       ///< read back once all were written
    /// Whether each of the two is what was written.
    bool verifiedAfterWrite;
    bool verifiedAtEnd;

    bool Verified() const { return verifiedAfterWrite && verifiedAtEnd; }
};

/// Puts the chip into power-down and writes the registers in the order of writing. Each is read
/// back at once, and all of them at the end. Bits that do not count keep what they are. A mode that
/// the chip leaves by itself is replaced by the idle mode. The levels of input pins are not
/// compared. A register that does not verify does not end the work. Throws UnsteadyRegisters before
/// the first write where bits are to be kept that cannot be read.
std::vector<RestoredRegister> RestoreConfiguration(ParallelPort& parallelPort,
                                                   const std::int16_t& portAddress,
                                                   const Configuration& configuration);

/// A register that does not hold what was written to it.
struct RegisterMismatch {
    RegisterReading wanted;
    std::int32_t readBack;
};

/// Those that did not verify, with what they held when they did not.
std::vector<RegisterMismatch> MismatchesIn(std::span<const RestoredRegister> restored);

/// The bits of a register's contents that come back as they were written: not the levels of pins
/// that are inputs.
std::int32_t ComparableBits(const RegisterMap::RegisterDescription& description,
                            std::int32_t written);

/// The operating mode of a mode register's contents, with idle for one that the chip leaves by
/// itself.
std::int32_t LastingMode(std::int32_t mode);

/// A field that two configurations set differently.
struct FieldDifference {
    const RegisterMap::RegisterDescription& description;
    const RegisterMap::Field& field;
    std::int32_t left;  ///< codes of the field
    std::int32_t right;
};

/// The fields that differ, in the order of registers and fields. Compared is what counts in both;
/// the levels of input pins do not.
std::vector<FieldDifference> DifferencesBetween(const Configuration& left,
                                                const Configuration& right);

}  // namespace vx3260
