// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/AnalogModel.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vx3260 {
namespace {

/// The signal path's errors before calibration.
constexpr double offsetOfFullScale = 0.002;
constexpr double gainError = -0.004;

constexpr double sensorVoltsPerKelvin = 1.000e-3;
constexpr double roomTemperatureKelvin = 298.15;

/// Volts on AIN1 to AIN6 against ground; index 0 is ground.
constexpr std::array<double, 7> pinVolts{0.0, 2.510, 2.500, 1.500, 1.480, 0.900, 0.300};

/// A channel is the difference of two pins.
struct PinPair {
    std::size_t positive;
    std::size_t negative;

    double Volts() const { return pinVolts[positive] - pinVolts[negative]; }
};

constexpr std::size_t ground = 0;
constexpr std::array<PinPair, 4> mainChannels{{{1, 2}, {3, 4}, {2, 2}, {3, 2}}};
constexpr std::array<PinPair, 4> mainChannelsChcon{{{1, 4}, {3, 4}, {4, 4}, {2, 4}}};
constexpr std::array<PinPair, 3> auxChannels{{{3, ground}, {4, ground}, {5, 6}}};
constexpr std::array<PinPair, 3> auxChannelsChcon{{{5, ground}, {6, ground}, {5, 6}}};
constexpr unsigned temperatureChannel = 3;

std::uint32_t ToCode(double value, std::uint32_t largest) {
    return static_cast<std::uint32_t>(
        std::clamp(std::nearbyint(value), 0.0, double{1.0} * largest));
}

}  // namespace

double ConversionSetup::ZeroCode() const {
    return bipolar ? std::ldexp(1.0, bits - 1) : 0.0;
}

double ConversionSetup::CodesToFullScale() const {
    return std::ldexp(1.0, bipolar ? bits - 1 : bits);
}

double ConversionSetup::NominalZeroScale() const {
    return std::ldexp(1.0, bits - 1);
}

double ConversionSetup::NominalFullScale() const {
    return std::ldexp(1.0, bits - 2);
}

std::uint32_t ConversionSetup::LargestCode() const {
    return (std::uint32_t{1} << bits) - 1;
}

double AnalogModel::MainInput(unsigned channel, bool chcon) {
    return (chcon ? mainChannelsChcon : mainChannels).at(channel).Volts();
}

double AnalogModel::AuxInput(unsigned channel, bool chcon) {
    if (channel == temperatureChannel) {
        return sensorVoltsPerKelvin * roomTemperatureKelvin;
    }
    const auto& channels = chcon ? auxChannelsChcon : auxChannels;
    return channel < channels.size() ? channels[channel].Volts() : 0.0;
}

double AnalogModel::RawAboveZero(double volts, const ConversionSetup& setup) {
    const double seen = volts * (1 + gainError) + offsetOfFullScale * setup.fullScaleVolts +
                        setup.noiseVolts * gaussian_(random_);
    return seen / setup.fullScaleVolts * setup.CodesToFullScale();
}

Conversion AnalogModel::Convert(double volts, const ConversionSetup& setup) {
    const double offset = setup.zeroScale - setup.NominalZeroScale();
    const double gain = setup.fullScale / setup.NominalFullScale();
    const double code =
        std::nearbyint(setup.ZeroCode() + (RawAboveZero(volts, setup) - offset) * gain);
    return {ToCode(code, setup.LargestCode()), code < 0 || code > setup.LargestCode()};
}

std::uint32_t AnalogModel::CalibrateZero(double volts, const ConversionSetup& setup) {
    return ToCode(setup.NominalZeroScale() + RawAboveZero(volts, setup), setup.LargestCode());
}

std::uint32_t AnalogModel::CalibrateFull(double volts, const ConversionSetup& setup) {
    const double offset = setup.zeroScale - setup.NominalZeroScale();
    const double span = RawAboveZero(volts, setup) - offset;
    if (span <= 0) {
        return setup.LargestCode();
    }
    return ToCode(setup.NominalFullScale() * setup.CodesToFullScale() / span, setup.LargestCode());
}

}  // namespace vx3260
