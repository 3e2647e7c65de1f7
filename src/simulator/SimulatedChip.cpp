// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/SimulatedChip.h"

#include <algorithm>
#include <cmath>

namespace vx3260 {
namespace {

enum Address : unsigned {
    communications = 0,  // the status register when it is read
    mode = 1,
    mainControl = 2,
    auxControl = 3,
    filter = 4,
    mainData = 5,
    auxData = 6,
    ioControl = 7,
    mainZeroScale = 8,
    auxZeroScale = 9,
    mainFullScale = 10,
    auxFullScale = 11,
    test1 = 12,
    test2 = 13,
};

/// Bits of each register; 0 where there is none.
constexpr std::array<int, 16> widths{8, 8, 8, 8, 8, 24, 16, 16, 24, 16, 24, 16, 16, 16, 0, 0};

constexpr std::array<std::uint32_t, 16> resetValues{0, 0x00, 0x07,     0x01,   0x45,     0,
                                                    0, 0,    0x800000, 0x8000, 0x400000, 0x4000};

constexpr std::uint32_t readBit = 0x40;
constexpr std::uint32_t alwaysZeroBits = 0xB0;
constexpr int commandBits = 8;
constexpr int onesThatReset = 32;

enum ModeField : unsigned {
    powerDown = 0,
    idle = 1,
    singleConversion = 2,
    continuousConversion = 3,
    internalZero = 4,
    internalFull = 5,
    systemZero = 6,
    systemFull = 7,
};

constexpr std::uint32_t enableBit = 0x80;
constexpr std::uint32_t wordLength16Bit = 0x40;
constexpr std::uint32_t unipolarBit = 0x08;
constexpr std::uint32_t referenceBit = 0x01;
constexpr std::uint32_t chconBit = 0x10;
constexpr std::uint32_t oscillatorOffBit = 0x08;
constexpr std::uint32_t calibratingBit = 0x20;
constexpr std::uint32_t lockBit = 0x01;

constexpr double referenceVolts = 2.5;

/// One conversion takes 24 cycles of the 32768 Hz clock for each count of the filter word.
constexpr double nanosecondsPerCount = 24 * 1e9 / 32768;
constexpr std::uint32_t minFilterWord = 13;
constexpr int periodsOfCalibration = 3;

constexpr double nominalFilterWord = 0x45;
constexpr double mainNoiseVolts = 0.5e-6;  // in the 20 mV range; 8 times that in the 2.56 V range
constexpr double auxNoiseVolts = 20e-6;

unsigned RangeCode(std::uint32_t control) {
    return control & 7U;
}

double MainFullScaleVolts(std::uint32_t control) {
    return std::ldexp(1.024 * referenceVolts, static_cast<int>(RangeCode(control)) - 7);
}

double AuxFullScaleVolts(std::uint32_t control) {
    return (control & referenceBit) != 0 ? referenceVolts : referenceVolts / 2;
}

double MainNoiseVolts(std::uint32_t control) {
    return mainNoiseVolts * std::exp2(RangeCode(control) * 3.0 / 7.0);
}

double AuxNoiseVolts(std::uint32_t /*control*/) {
    return auxNoiseVolts;
}

/// What differs between the converters. `control` is the control register's contents; noise is
/// that of the nominal filter word.
struct ConverterDescription {
    Address data;
    Address control;
    Address zeroScale;
    Address fullScale;
    int bits;
    std::uint32_t channelCodes;  ///< the largest code of the channel field, from bit 4 on
    std::uint32_t readyBit;      ///< of the status register, as the next
    std::uint32_t errorBit;
    double (*inputVolts)(unsigned channel, bool chcon);
    double (*fullScaleVolts)(std::uint32_t control);
    double (*noiseVolts)(std::uint32_t control);
};

constexpr ConverterDescription descriptions[] = {
    {.data = mainData,
     .control = mainControl,
     .zeroScale = mainZeroScale,
     .fullScale = mainFullScale,
     .bits = 24,
     .channelCodes = 3,
     .readyBit = 0x80,
     .errorBit = 0x08,
     .inputVolts = AnalogModel::MainInput,
     .fullScaleVolts = MainFullScaleVolts,
     .noiseVolts = MainNoiseVolts},
    {.data = auxData,
     .control = auxControl,
     .zeroScale = auxZeroScale,
     .fullScale = auxFullScale,
     .bits = 16,
     .channelCodes = 7,
     .readyBit = 0x40,
     .errorBit = 0x04,
     .inputVolts = AnalogModel::AuxInput,
     .fullScaleVolts = AuxFullScaleVolts,
     .noiseVolts = AuxNoiseVolts},
};

bool IsReadable(unsigned address) {
    return address <= auxFullScale;
}

bool IsCalibration(unsigned modeField) {
    return modeField >= internalZero;
}

}  // namespace

SimulatedChip::SimulatedChip(std::uint64_t seed) : registers_(resetValues), analog_(seed) {
    registers_[mode] = 0x03;
    registers_[mainControl] = 0x87;
    registers_[auxControl] = 0xB9;
    Restart();
}

bool SimulatedChip::Ready() const {
    return (Enabled(mainAdc) && converters_[mainAdc].unread) ||
           (Enabled(auxAdc) && converters_[auxAdc].unread);
}

void SimulatedChip::SetLines(bool clock, bool din, bool notReset) {
    const bool edge = clock != clock_;
    clock_ = clock;
    if (!notReset) {
        Reset();
        return;
    }
    if (!edge) {
        return;
    }
    if (clock) {
        RisingEdge(din);
    } else {
        FallingEdge();
    }
}

void SimulatedChip::Reset() {
    registers_ = resetValues;
    phase_ = Phase::Command;
    bitsLeft_ = commandBits;
    shift_ = 0;
    onesInARow_ = 0;
    dout_ = true;
    Restart();
}

void SimulatedChip::RisingEdge(bool din) {
    onesInARow_ = din ? onesInARow_ + 1 : 0;
    if (onesInARow_ == onesThatReset) {
        Reset();
        return;
    }
    if (phase_ != Phase::Reading) {
        shift_ = (shift_ << 1) | (din ? 1U : 0U);
    }
    if (--bitsLeft_ > 0) {
        return;
    }
    const std::uint32_t word = shift_;
    const Phase ended = phase_;
    phase_ = Phase::Command;
    bitsLeft_ = commandBits;
    shift_ = 0;
    dout_ = true;
    if (ended == Phase::Command) {
        StartAccess(word);
    } else if (ended == Phase::Writing) {
        Write(address_, word);
    }
}

/// The word is taken over with its first clock, not with the communications byte: a result that
/// becomes ready in between is the one delivered.
void SimulatedChip::FallingEdge() {
    if (phase_ != Phase::Reading) {
        return;
    }
    if (!latched_) {
        latched_ = true;
        shift_ = Contents(address_);
        for (const Which which : {mainAdc, auxAdc}) {
            if (address_ == descriptions[which].data) {
                converters_[which].unread = false;
            }
        }
    }
    dout_ = ((shift_ >> (bitsLeft_ - 1)) & 1U) != 0;
}

void SimulatedChip::StartAccess(std::uint32_t command) {
    const bool read = (command & readBit) != 0;
    const unsigned address = command & 0x0F;
    if ((command & alwaysZeroBits) != 0 || widths[address] == 0) {
        return;
    }
    if (read ? !IsReadable(address) : address == communications) {
        return;
    }
    address_ = address;
    bitsLeft_ = widths[address];
    phase_ = read ? Phase::Reading : Phase::Writing;
    latched_ = false;
}

void SimulatedChip::Write(unsigned address, std::uint32_t value) {
    switch (address) {
        case mode:
        case mainControl:
        case auxControl:
            registers_[address] = value;
            Restart();
            break;
        case filter:
            if (Mode() == powerDown) {
                registers_[address] = value;
                Restart();
            }
            break;
        case mainZeroScale:
        case auxZeroScale:
        case mainFullScale:
        case auxFullScale:
            if (Mode() == powerDown) {
                registers_[address] = value;
            }
            break;
        case ioControl:
        case test1:
        case test2:
            registers_[address] = value;
            break;
        default:  // the data registers cannot be written
            break;
    }
}

void SimulatedChip::Preset(unsigned address, std::uint32_t value) {
    registers_.at(address) = value;
    Restart();
}

void SimulatedChip::Restart() {
    for (ConverterState& converter : converters_) {
        converter.unread = false;
        converter.clamped = false;
    }
    const unsigned field = Mode();
    if (field == powerDown || field == idle) {
        nextEvent_ = never;
        return;
    }
    nextEvent_ = now_ + Period() * (IsCalibration(field) ? periodsOfCalibration : 1);
}

void SimulatedChip::RunEvents() {
    while (now_ >= nextEvent_) {
        const unsigned field = Mode();
        if (IsCalibration(field)) {
            CalibrateEnabled(field);
        } else {
            ConvertEnabled();
        }
        if (field == continuousConversion) {
            nextEvent_ += Period();
            continue;
        }
        registers_[mode] = (registers_[mode] & ~7U) | idle;
        nextEvent_ = never;
    }
}

void SimulatedChip::ConvertEnabled() {
    for (const Which which : {mainAdc, auxAdc}) {
        if (!Enabled(which)) {
            continue;
        }
        const Conversion conversion = analog_.Convert(InputVolts(which), Setup(which));
        converters_[which] = {conversion.code, true, conversion.clamped};
    }
    if ((registers_[mainControl] & wordLength16Bit) != 0) {
        converters_[mainAdc].result &= 0xFFFF00U;
    }
}

void SimulatedChip::CalibrateEnabled(unsigned field) {
    const bool zero = field == internalZero || field == systemZero;
    const bool internal = field == internalZero || field == internalFull;
    for (const Which which : {mainAdc, auxAdc}) {
        if (!Enabled(which)) {
            continue;
        }
        const ConversionSetup setup = Setup(which);
        const double connected = zero ? 0.0 : setup.fullScaleVolts;
        const double volts = internal ? connected : InputVolts(which);
        if (zero) {
            registers_[descriptions[which].zeroScale] = analog_.CalibrateZero(volts, setup);
        } else {
            registers_[descriptions[which].fullScale] = analog_.CalibrateFull(volts, setup);
        }
        converters_[which].unread = true;
    }
}

unsigned SimulatedChip::Mode() const {
    return registers_[mode] & 7U;
}

bool SimulatedChip::Chcon() const {
    return (registers_[mode] & chconBit) != 0;
}

bool SimulatedChip::Enabled(Which which) const {
    return (registers_[descriptions[which].control] & enableBit) != 0;
}

std::int64_t SimulatedChip::Period() const {
    const std::uint32_t word = std::max(registers_[filter], minFilterWord);
    return std::llround(word * nanosecondsPerCount);
}

double SimulatedChip::InputVolts(Which which) const {
    const ConverterDescription& own = descriptions[which];
    return own.inputVolts((registers_[own.control] >> 4) & own.channelCodes, Chcon());
}

ConversionSetup SimulatedChip::Setup(Which which) const {
    const ConverterDescription& own = descriptions[which];
    const std::uint32_t control = registers_[own.control];
    const double rateFactor =
        std::sqrt(nominalFilterWord / std::max(registers_[filter], minFilterWord));
    return {
        .bits = own.bits,
        .bipolar = (control & unipolarBit) == 0,
        .fullScaleVolts = own.fullScaleVolts(control),
        .noiseVolts = own.noiseVolts(control) * rateFactor,
        .zeroScale = registers_[own.zeroScale],
        .fullScale = registers_[own.fullScale],
    };
}

std::uint32_t SimulatedChip::StatusBits() const {
    const bool oscillatorStopped =
        Mode() == powerDown && (registers_[mode] & oscillatorOffBit) != 0;
    std::uint32_t bits = oscillatorStopped ? 0 : lockBit;
    bits |= IsCalibration(Mode()) ? calibratingBit : 0;
    for (const Which which : {mainAdc, auxAdc}) {
        bits |= converters_[which].unread && Enabled(which) ? descriptions[which].readyBit : 0;
        bits |= converters_[which].clamped ? descriptions[which].errorBit : 0;
    }
    return bits;
}

/// A pin that is an input shows its level in place of the bit that was written.
std::uint32_t SimulatedChip::IoBits() const {
    std::uint32_t bits = registers_[ioControl];
    if ((bits & 0x40U) == 0) {
        bits |= 0x04U;  // P3 is pulled high
    }
    if ((bits & 0x80U) == 0) {
        bits &= ~0x08U;  // P4 is pulled low
    }
    return bits;
}

std::uint32_t SimulatedChip::Contents(unsigned address) const {
    switch (address) {
        case communications:
            return StatusBits();
        case mainData:
            return converters_[mainAdc].result;
        case auxData:
            return converters_[auxAdc].result;
        case ioControl:
            return IoBits();
        default:
            return registers_.at(address);
    }
}

}  // namespace vx3260
