// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <random>

namespace vx3260 {

/// The settings of one converter that decide what a voltage is converted to.
struct ConversionSetup {
    int bits;                 ///< 24 or 16
    bool bipolar;             ///< offset binary; otherwise straight binary
    double fullScaleVolts;    ///< input for the largest code
    double noiseVolts;        ///< RMS, referred to the input
    std::uint32_t zeroScale;  ///< calibration registers
    std::uint32_t fullScale;

    /// The code of zero volts of an ideal converter.
    double ZeroCode() const;
    /// Codes from zero volts to full scale.
    double CodesToFullScale() const;
    double NominalZeroScale() const;
    double NominalFullScale() const;
    std::uint32_t LargestCode() const;
};

struct Conversion {
    std::uint32_t code;
    bool clamped;  ///< the input was outside the code range
};

/// The analog side of the board: what is connected to the pins, the errors of the signal path and
/// its noise. Seeded, so that a run repeats to the bit.
class AnalogModel {
  public:
    explicit AnalogModel(std::uint64_t seed) : random_(seed) {}

    /// Volts at the main converter's input; `channel` is 0 to 3.
    static double MainInput(unsigned channel, bool chcon);
    /// Volts at the aux converter's input; `channel` is 0 to 7, of which 5 to 7 connect nothing.
    static double AuxInput(unsigned channel, bool chcon);

    Conversion Convert(double volts, const ConversionSetup& setup);

    /// The zero-scale register that makes `volts` read as zero.
    std::uint32_t CalibrateZero(double volts, const ConversionSetup& setup);
    /// The full-scale register that makes `volts` read as full scale.
    std::uint32_t CalibrateFull(double volts, const ConversionSetup& setup);

  private:
    /// The uncalibrated result, in codes above the code of zero volts.
    double RawAboveZero(double volts, const ConversionSetup& setup);

    std::mt19937_64 random_;
    std::normal_distribution<double> gaussian_;
};

}  // namespace vx3260
