// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/PrinterPorts.h"
#include "link/BlockConditions.h"
#include "link/CodeBlock.h"
#include "link/Converter.h"

namespace vx3260 {

/// Everything the forms share, for the whole run. Nothing here outlives the process.
///
/// Part of the state's definition, set though nothing reads them: IsNtFamily, PortCount,
/// MainControlValue, AuxControlValue, IOControlValue, InputRange, Polarity, and the statistics
/// from MaxCode on.
struct ApplicationState {
    // Port and platform, from start-up.
    std::string WindowsVersionText;
    std::int16_t IsNtFamily = 0;   ///< 0 or -1
    std::int32_t PortCount = 0;    ///< result of GetParallelPortCount
    bool PortClaimFailed = false;  ///< what is read then does not come from a board
    std::int16_t PortAddress = 0;  ///< base I/O address; read afresh at every chip access
    std::array<bool, PrinterPorts.size()> PrinterPortEnabled{true, true, true};

    /// 1 while a form selects its option buttons to match the chip, so that doing so writes
    /// nothing.
    std::int16_t FormLoading = 0;

    // Each register as last read by the form that presents it.
    std::int16_t ModeRegisterValue = 0;
    std::int16_t MainControlValue = 0;
    std::int16_t AuxControlValue = 0;
    std::int16_t FilterValue = 0;
    std::int32_t IOControlValue = 0;

    // Conversion conditions.
    float ReferenceVoltage = 0;  ///< volts
    float InputRange = 0;        ///< main ADC input range, volts
    vx3260::Polarity Polarity = vx3260::Polarity::Unset;

    /// Of the temperature sensor on the aux ADC, in millivolts per kelvin.
    float TemperatureSlope = 1;

    // The last block of each converter.
    std::vector<double> MainCodes;
    std::int16_t MainCodeCount = 0;
    std::vector<double> AuxCodes;
    std::int16_t AuxCodeCount = 0;
    /// How these blocks were read; empty where that is unknown.
    std::optional<BlockConditions> MainConditions;
    std::optional<BlockConditions> AuxConditions;

    // Statistics of the block that was analysed last.
    std::int32_t MaxCode = 0;
    std::int32_t MinCode = 0;
    float AverageCode = 0;
    double LsbSize = 0;  ///< size of one code, nanovolts
    std::int32_t RmsNoiseLsb = 0;

    CodeBlock BlockOf(Converter converter) {
        return converter == Converter::Main ? CodeBlock{MainCodes, MainCodeCount}
                                            : CodeBlock{AuxCodes, AuxCodeCount};
    }
    std::optional<BlockConditions>& ConditionsOf(Converter converter) {
        return converter == Converter::Main ? MainConditions : AuxConditions;
    }
};

}  // namespace vx3260
