// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Configuration.h"

#include "link/Register.h"

namespace vx3260 {
namespace {

/// An I/O pin with a bit for its level: the driven one of an output, the actual one of an input.
struct Pin {
    const RegisterMap::Field& direction;
    const RegisterMap::Field& state;
};

constexpr Pin pins[] = {{RegisterMap::P3Direction, RegisterMap::P3State},
                        {RegisterMap::P4Direction, RegisterMap::P4State}};

bool IsMode(const RegisterReading& reading) {
    return reading.description.access.readByte == RegisterMap::Mode.readByte;
}

std::int32_t LastingMode(std::int32_t mode) {
    return RegisterMap::EndsByItself(mode)
               ? RegisterMap::OperatingMode.Insert(mode, RegisterMap::Idle)
               : mode;
}

}  // namespace

std::int32_t ComparableBits(const RegisterMap::RegisterDescription& description,
                            std::int32_t written) {
    std::int32_t bits = -1;
    for (const Pin& pin : pins) {
        const bool input = pin.direction.CodeIn(written) == 0;
        if (description.fields.data() == RegisterMap::IOControlFields && input) {
            bits &= ~pin.state.mask;
        }
    }
    return bits;
}

Configuration ReadConfiguration(ParallelPort& parallelPort, const std::int16_t& portAddress) {
    Configuration configuration;
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        if (description.access.writeByte != 0) {
            configuration.push_back(
                {description, ReadRegister(parallelPort, portAddress, description.access)});
        }
    }
    return configuration;
}

RegisterSnapshot SnapshotOf(const Configuration& configuration) {
    RegisterSnapshot snapshot;
    for (const auto& [description, value] : configuration) {
        snapshot.Set(description.access, value);
    }
    return snapshot;
}

std::vector<RegisterMismatch> RestoreConfiguration(ParallelPort& parallelPort,
                                                   const std::int16_t& portAddress,
                                                   const Configuration& configuration) {
    Register mode(parallelPort, portAddress, RegisterMap::Mode);
    mode.WriteValue(RegisterMap::PowerDown);
    std::int32_t lastMode = RegisterMap::PowerDown;
    for (const bool needPowerDown : {true, false}) {
        for (const auto& [description, value] : configuration) {
            if (description.access.readByte == RegisterMap::Mode.readByte) {
                lastMode = LastingMode(value);
            } else if (description.writesNeedPowerDown == needPowerDown) {
                Register(parallelPort, portAddress, description.access).WriteValue(value);
            }
        }
    }
    mode.WriteValue(lastMode);
    std::vector<RegisterMismatch> mismatches;
    for (const RegisterReading& reading : configuration) {
        const std::int32_t wanted = IsMode(reading) ? lastMode : reading.value;
        const std::int32_t readBack =
            ReadRegister(parallelPort, portAddress, reading.description.access);
        if (((wanted ^ readBack) & ComparableBits(reading.description, wanted)) != 0) {
            mismatches.push_back({{reading.description, wanted}, readBack});
        }
    }
    return mismatches;
}

}  // namespace vx3260
