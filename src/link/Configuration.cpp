// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Configuration.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "link/Register.h"

namespace vx3260 {
namespace {

using RegisterMap::RegisterDescription;

/// An I/O pin with a bit for its level: the driven one of an output, the actual one of an input.
struct Pin {
    const RegisterMap::Field& direction;
    const RegisterMap::Field& state;
};

constexpr Pin pins[] = {{RegisterMap::P3Direction, RegisterMap::P3State},
                        {RegisterMap::P4Direction, RegisterMap::P4State}};

/// What the register is to hold: the bits that do not count keep what they are.
RegisterReading WantedOf(const RegisterSetting& setting, const RegisterSnapshot& present) {
    const std::int32_t others =
        present.ValueOf(setting.description.access).value_or(0) & ~setting.bits;
    const std::int32_t value = (setting.value & setting.bits) | others;
    return {setting.description, IsMode(setting.description) ? LastingMode(value) : value};
}

/// Writes the registers of a configuration, and reads them back.
class Restoring {
  public:
    Restoring(ParallelPort& parallelPort, const std::int16_t& portAddress)
        : port_(parallelPort), address_(portAddress) {}

    void WritePowerDown() {
        Register(port_, address_, RegisterMap::Mode).WriteValue(RegisterMap::PowerDown);
    }

    void Write(const RegisterReading& wanted) {
        Register(port_, address_, wanted.description.access).WriteValue(wanted.value);
        const std::int32_t readBack = Read(wanted.description);
        restored_.push_back({wanted, readBack, readBack, Matches(wanted, readBack), false});
    }

    std::vector<RestoredRegister> CompareAll() && {
        for (RestoredRegister& reg : restored_) {
            reg.atEnd = Read(reg.wanted.description);
            reg.verifiedAtEnd = Matches(reg.wanted, reg.atEnd);
        }
        return std::move(restored_);
    }

  private:
    std::int32_t Read(const RegisterDescription& description) {
        return ReadRegister(port_, address_, description.access);
    }

    static bool Matches(const RegisterReading& wanted, std::int32_t readBack) {
        return ((wanted.value ^ readBack) & ComparableBits(wanted.description, wanted.value)) == 0;
    }

    ParallelPort& port_;
    const std::int16_t& address_;
    std::vector<RestoredRegister> restored_;
};

}  // namespace

bool IsCoefficient(const RegisterDescription& description) {
    return description.fields.data() == RegisterMap::Coefficient24 ||
           description.fields.data() == RegisterMap::Coefficient16;
}

std::int32_t LastingMode(std::int32_t mode) {
    return RegisterMap::EndsByItself(mode)
               ? RegisterMap::OperatingMode.Insert(mode, RegisterMap::Idle)
               : mode;
}

std::int32_t ComparableBits(const RegisterDescription& description, std::int32_t written) {
    std::int32_t bits = AllBits;
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
    for (const RegisterDescription& description : RegisterMap::ReadableRegisters) {
        if (description.access.writeByte != 0) {
            configuration.push_back(
                {description, ReadRegister(parallelPort, portAddress, description.access)});
        }
    }
    return configuration;
}

Configuration ReadSteadyConfiguration(ParallelPort& parallelPort, const std::int16_t& portAddress) {
    constexpr int maxReadings = 5;
    Configuration last = ReadConfiguration(parallelPort, portAddress);
    for (int reading = 1; reading < maxReadings; ++reading) {
        Configuration next = ReadConfiguration(parallelPort, portAddress);
        const bool steady = std::ranges::equal(
            last, next, [](const RegisterSetting& one, const RegisterSetting& other) {
                return ((one.value ^ other.value) & ComparableBits(one.description, one.value)) ==
                       0;
            });
        if (steady) {
            return next;
        }
        last.swap(next);
    }
    throw UnsteadyRegisters();
}

RegisterSnapshot SnapshotOf(const Configuration& configuration) {
    RegisterSnapshot snapshot;
    for (const RegisterSetting& setting : configuration) {
        snapshot.Set(setting.description.access, setting.value);
    }
    return snapshot;
}

Configuration ConfigurationOf(const RegisterSnapshot& snapshot) {
    Configuration configuration;
    for (const RegisterDescription& description : RegisterMap::ReadableRegisters) {
        const std::optional<std::int32_t> value = snapshot.ValueOf(description.access);
        if (description.access.writeByte != 0 && value) {
            configuration.push_back({description, *value});
        }
    }
    return configuration;
}

Configuration InOrderOfWriting(const Configuration& configuration) {
    const auto rank = [](const RegisterDescription& description) {
        return IsMode(description) ? 2 : description.writesNeedPowerDown ? 0 : 1;
    };
    Configuration ordered;
    for (int next = 0; next <= 2; ++next) {
        std::ranges::copy_if(
            configuration, std::back_inserter(ordered),
            [&](const RegisterSetting& setting) { return rank(setting.description) == next; });
    }
    return ordered;
}

std::vector<RestoredRegister> RestoreConfiguration(ParallelPort& parallelPort,
                                                   const std::int16_t& portAddress,
                                                   const Configuration& configuration) {
    Restoring restoring(parallelPort, portAddress);
    const bool complete = std::ranges::all_of(
        configuration, [](const RegisterSetting& setting) { return setting.bits == AllBits; });
    const RegisterSnapshot present =
        complete ? RegisterSnapshot()
                 : SnapshotOf(ReadSteadyConfiguration(parallelPort, portAddress));
    std::vector<RegisterReading> wanted;
    for (const RegisterSetting& setting : InOrderOfWriting(configuration)) {
        wanted.push_back(WantedOf(setting, present));
    }
    restoring.WritePowerDown();
    for (const RegisterReading& reading : wanted) {
        restoring.Write(reading);
    }
    return std::move(restoring).CompareAll();
}

std::vector<RegisterMismatch> MismatchesIn(std::span<const RestoredRegister> restored) {
    std::vector<RegisterMismatch> mismatches;
    for (const RestoredRegister& reg : restored) {
        if (!reg.Verified()) {
            mismatches.push_back({reg.wanted, reg.verifiedAtEnd ? reg.afterWrite : reg.atEnd});
        }
    }
    return mismatches;
}

std::vector<FieldDifference> DifferencesBetween(const Configuration& left,
                                                const Configuration& right) {
    std::vector<FieldDifference> differences;
    for (const RegisterSetting& one : left) {
        const auto other = std::ranges::find_if(right, [&one](const RegisterSetting& setting) {
            return setting.description.name == one.description.name;
        });
        if (other == right.end()) {
            continue;
        }
        const std::int32_t compared = one.bits & other->bits &
                                      ComparableBits(one.description, one.value) &
                                      ComparableBits(one.description, other->value);
        for (const RegisterMap::Field& field : one.description.fields) {
            const bool counts = (field.mask & compared) == field.mask;
            if (counts && field.CodeIn(one.value) != field.CodeIn(other->value)) {
                differences.push_back(
                    {one.description, field, field.CodeIn(one.value), field.CodeIn(other->value)});
            }
        }
    }
    return differences;
}

}  // namespace vx3260
