// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bit>
#include <cstdint>
#include <span>
#include <string_view>

#include "link/RegisterMap.h"

/// The fields inside the chip's registers, one description for the forms and the command line.
namespace vx3260::RegisterMap {

/// One setting of a field.
struct FieldValue {
    std::int32_t code;      ///< contents of the field's bits
    std::string_view name;  ///< as the command line names it
};

/// A group of adjacent bits of a register.
struct Field {
    std::string_view name;   ///< as the command line names it
    std::string_view title;  ///< for a person
    std::int32_t mask;
    std::span<const FieldValue> values{};  ///< empty for a plain number

    constexpr int Shift() const { return std::countr_zero(static_cast<std::uint32_t>(mask)); }
    constexpr std::int32_t LargestCode() const { return mask >> Shift(); }
    constexpr std::int32_t CodeIn(std::int32_t value) const { return (value & mask) >> Shift(); }

    /// `value` with this field holding `code`; all other bits are kept.
    constexpr std::int32_t Insert(std::int32_t value, std::int32_t code) const {
        return (value & ~mask) | ((code << Shift()) & mask);
    }
};

/// A register as a whole.
struct RegisterDescription {
    std::string_view name;   ///< as the command line names it
    std::string_view title;  ///< for a person
    RegisterAccess access;
    std::span<const Field> fields;
    bool writesNeedPowerDown = false;  ///< the chip ignores writes in other modes
};

inline constexpr FieldValue OffOn[] = {{0, "off"}, {1, "on"}};
inline constexpr FieldValue LowHigh[] = {{0, "low"}, {1, "high"}};

inline constexpr FieldValue ModeValues[] = {
    {PowerDown, "power-down"},
    {Idle, "idle"},
    {SingleConversion, "single"},
    {ContinuousConversion, "continuous"},
    {InternalZeroScale, "internal-zero"},
    {InternalFullScale, "internal-full"},
    {SystemZeroScale, "system-zero"},
    {SystemFullScale, "system-full"},
};
inline constexpr FieldValue OscillatorValues[] = {{0, "on"}, {1, "off"}};
inline constexpr FieldValue ChconValues[] = {{0, "cleared"}, {1, "set"}};
inline constexpr FieldValue BufferingValues[] = {{0, "unbuffered"}, {1, "buffered"}};

inline constexpr Field OperatingMode{"mode", "Mode of operation", ModeMask, ModeValues};
inline constexpr Field Oscillator{"oscillator", "Oscillator in power-down", 0x08, OscillatorValues};
inline constexpr Field Chcon{"chcon", "Channel configuration", 0x10, ChconValues};
inline constexpr Field Buffering{"buffering", "Input buffering", 0x40, BufferingValues};
inline constexpr Field ModeFields[] = {Buffering, Chcon, Oscillator, OperatingMode};

inline constexpr FieldValue PolarityValues[] = {{0, "bipolar"}, {1, "unipolar"}};
inline constexpr FieldValue WordLengthValues[] = {{0, "24"}, {1, "16"}};
inline constexpr FieldValue MainChannelValues[] = {
    {0, "ain1-ain2"}, {1, "ain3-ain4"}, {2, "ain2-ain2"}, {3, "ain3-ain2"}};
inline constexpr FieldValue RangeValues[] = {{0, "20mV"},  {1, "40mV"},  {2, "80mV"},
                                             {3, "160mV"}, {4, "320mV"}, {5, "640mV"},
                                             {6, "1.28V"}, {7, "2.56V"}};

inline constexpr Field Enable{"enable", "Converter enable", EnableMask, OffOn};
inline constexpr Field Polarity{"polarity", "Polarity", UnipolarMask, PolarityValues};
inline constexpr Field WordLength{"word-length", "Word length", WordLength16Mask, WordLengthValues};
inline constexpr Field MainChannel{"channel", "Input channel", 0x30, MainChannelValues};
inline constexpr Field InputRange{"range", "Input range", RangeMask, RangeValues};
inline constexpr Field MainControlFields[] = {Enable, WordLength, MainChannel, Polarity,
                                              InputRange};

inline constexpr FieldValue AuxChannelValues[] = {
    {0, "ain3"}, {1, "ain4"}, {2, "ain5-ain6"}, {3, "temperature"}, {4, "agnd"}};
inline constexpr FieldValue ReferenceValues[] = {{0, "half"}, {1, "full"}};

inline constexpr Field AuxChannel{"channel", "Input channel", AuxChannelMask, AuxChannelValues};
inline constexpr Field Reference{"reference", "Reference", FullReferenceMask, ReferenceValues};
inline constexpr Field AuxControlFields[] = {Enable, AuxChannel, Polarity, Reference};

inline constexpr Field FilterWord{"word", "Filter word", 0xFF};
inline constexpr Field FilterFields[] = {FilterWord};

inline constexpr FieldValue FunctionValues[] = {{0, "output"}, {1, "power-switch"}};
inline constexpr FieldValue DirectionValues[] = {{0, "input"}, {1, "output"}};
inline constexpr FieldValue DriveValues[] = {{0, "tri-state"}, {1, "driven"}};
inline constexpr FieldValue Current2Values[] = {{0, "iout2"}, {1, "iout1"}};
inline constexpr FieldValue Current1Values[] = {{0, "iout1"}, {1, "iout2"}};

inline constexpr Field P2Function{"p2-function", "P2 function", 0x8000, FunctionValues};
inline constexpr Field P1Function{"p1-function", "P1 function", 0x4000, FunctionValues};
inline constexpr Field Burnout{"burnout", "Burnout current", 0x1000, OffOn};
inline constexpr Field Iexc2Direction{"iexc2-direction", "IEXC2 direction", 0x0800, Current2Values};
inline constexpr Field Iexc1Direction{"iexc1-direction", "IEXC1 direction", 0x0400, Current1Values};
inline constexpr Field Iexc2{"iexc2", "IEXC2", 0x0200, OffOn};
inline constexpr Field Iexc1{"iexc1", "IEXC1", 0x0100, OffOn};
inline constexpr Field P4Direction{"p4-direction", "P4 direction", 0x0080, DirectionValues};
inline constexpr Field P3Direction{"p3-direction", "P3 direction", 0x0040, DirectionValues};
inline constexpr Field P2Status{"p2-status", "P2 status", 0x0020, DriveValues};
inline constexpr Field P1Status{"p1-status", "P1 status", 0x0010, DriveValues};
inline constexpr Field P4State{"p4", "P4 state", 0x0008, LowHigh};
inline constexpr Field P3State{"p3", "P3 state", 0x0004, LowHigh};
inline constexpr Field P2State{"p2", "P2 output state", 0x0002, LowHigh};
inline constexpr Field P1State{"p1", "P1 output state", 0x0001, LowHigh};
inline constexpr Field IOControlFields[] = {
    P2Function,  P1Function, Burnout,  Iexc2Direction, Iexc1Direction, Iexc2,   Iexc1,  P4Direction,
    P3Direction, P2Status,   P1Status, P4State,        P3State,        P2State, P1State};

inline constexpr FieldValue NoYes[] = {{0, "no"}, {1, "yes"}};
inline constexpr Field StatusFields[] = {
    {"rdy0", "Main result ready", 0x80, NoYes},
    {"rdy1", "Aux result ready", 0x40, NoYes},
    {"cal", "Calibrating", 0x20, NoYes},
    {"noxref", "No external reference", 0x10, NoYes},
    {"err0", "Main result out of range", 0x08, NoYes},
    {"err1", "Aux result out of range", 0x04, NoYes},
    {"lock", "Oscillator locked", 0x01, NoYes},
};

inline constexpr Field Coefficient24[] = {{"value", "Coefficient", 0xFFFFFF}};
inline constexpr Field Coefficient16[] = {{"value", "Coefficient", 0xFFFF}};

/// Every register that can be read at once, in the order of their addresses.
inline constexpr RegisterDescription ReadableRegisters[] = {
    {"status", "Status Register", Status, StatusFields},
    {"mode", "Mode Register", Mode, ModeFields},
    {"main-control", "Main ADC Control Register", MainControl, MainControlFields},
    {"aux-control", "Aux ADC Control Register", AuxControl, AuxControlFields},
    {"filter", "Filter Register", Filter, FilterFields, true},
    {"io-control", "I/O Control Register", IOControl, IOControlFields},
    {"main-zero", "Main Zero Scale Calibration Register", MainZeroScale, Coefficient24, true},
    {"aux-zero", "Aux Zero Scale Calibration Register", AuxZeroScale, Coefficient16, true},
    {"main-full", "Main Full Scale Calibration Register", MainFullScale, Coefficient24, true},
    {"aux-full", "Aux Full Scale Calibration Register", AuxFullScale, Coefficient16, true},
};

}  // namespace vx3260::RegisterMap
