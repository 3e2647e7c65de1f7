// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// The chip's registers and the fields inside them.
///
/// The communications byte comes first in every access: bit 6 is set for a read, bits 3 to 0 are
/// the register's address, the others are 0.
namespace vx3260::RegisterMap {

/// How one register is reached. A byte of 0 means that the register has no such access.
struct RegisterAccess {
    std::int16_t writeByte;
    std::int16_t readByte;
    std::int16_t wordLength;  ///< bits
};

/// The address of the register that a communications byte is for, 0 to 15.
constexpr std::int16_t AddressIn(std::int16_t communicationsByte) {
    return static_cast<std::int16_t>(communicationsByte & 0x0F);
}

inline constexpr RegisterAccess Status{0, 0x40, 8};
inline constexpr RegisterAccess Mode{0x01, 0x41, 8};
inline constexpr RegisterAccess MainControl{0x02, 0x42, 8};
inline constexpr RegisterAccess AuxControl{0x03, 0x43, 8};
inline constexpr RegisterAccess Filter{0x04, 0x44, 8};
inline constexpr RegisterAccess MainData{0, 0x45, 24};  ///< read only after data-ready
inline constexpr RegisterAccess AuxData{0, 0x46, 16};   ///< read only after data-ready
inline constexpr RegisterAccess IOControl{0x07, 0x47, 16};
inline constexpr RegisterAccess MainZeroScale{0x08, 0x48, 24};
inline constexpr RegisterAccess AuxZeroScale{0x09, 0x49, 16};
inline constexpr RegisterAccess MainFullScale{0x0A, 0x4A, 24};
inline constexpr RegisterAccess AuxFullScale{0x0B, 0x4B, 16};
inline constexpr RegisterAccess Test1{0x0C, 0, 16};
inline constexpr RegisterAccess Test2{0x0D, 0, 16};

/// Mode register, bits 2 to 0.
inline constexpr std::int16_t ModeMask = 0x07;
inline constexpr std::int16_t PowerDown = 0;
inline constexpr std::int16_t Idle = 1;
inline constexpr std::int16_t SingleConversion = 2;
inline constexpr std::int16_t ContinuousConversion = 3;
constexpr bool IsPowerDown(std::int32_t mode) {
    return (mode & ModeMask) == PowerDown;
}
constexpr bool IsContinuousConversion(std::int32_t mode) {
    return (mode & ModeMask) == ContinuousConversion;
}
inline constexpr std::int16_t InternalZeroScale = 4;
inline constexpr std::int16_t InternalFullScale = 5;
inline constexpr std::int16_t SystemZeroScale = 6;
inline constexpr std::int16_t SystemFullScale = 7;
constexpr bool IsCalibration(std::int32_t mode) {
    return (mode & ModeMask) >= InternalZeroScale;
}
/// Whether the chip leaves the mode by itself: after one result, or when it has calibrated.
constexpr bool EndsByItself(std::int32_t mode) {
    return (mode & ModeMask) == SingleConversion || IsCalibration(mode);
}

/// Main and aux ADC control registers.
inline constexpr std::int16_t EnableMask = 0x80;
inline constexpr std::int16_t UnipolarMask = 0x08;
constexpr bool IsEnabled(std::int32_t control) {
    return (control & EnableMask) != 0;
}

/// Aux ADC control register: full scale is the reference, or half of it when clear.
inline constexpr std::int16_t FullReferenceMask = 0x01;

/// Aux ADC control register, bits 6 to 4: the input channel.
inline constexpr std::int16_t AuxChannelMask = 0x70;
inline constexpr std::int16_t TemperatureSensor = 0x30;

/// Main ADC control register: the result has 16 bits, and the lower 8 of the 24 read are 0.
inline constexpr std::int16_t WordLength16Mask = 0x40;

/// Main ADC control register, bits 2 to 0: the input range, in volts for each code.
inline constexpr std::int16_t RangeMask = 0x07;
inline constexpr std::array<float, 8> InputRanges{0.02F, 0.04F, 0.08F, 0.16F,
                                                  0.32F, 0.64F, 1.28F, 2.56F};

}  // namespace vx3260::RegisterMap
