// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MessageTexts.h"

#include "app/PortWords.h"
#include "link/RegisterLookup.h"
#include "link/RegisterMap.h"
#include "numbers/NumberText.h"

namespace vx3260::MessageTexts {

std::string AddressTooHigh(std::int32_t address) {
    return "The printer port's address " + PrefixedHex(address) +
           " is above 0x7FFF and cannot be used.";
}

std::string Status(std::string_view windowsVersion, std::int16_t portAddress) {
    return "Windows Version:" + std::string(windowsVersion) +
           "\rPort Address:" + PrefixedHex(static_cast<std::uint16_t>(portAddress));
}

std::string ConverterDisabled(Converter converter) {
    return "Enable " + std::string(TraitsOf(converter).name) + " ADC before reading Data";
}

std::string TimeoutDetail(const ParallelPort& port) {
    std::string failure = port.FailureDetail();
    if (!failure.empty()) {
        return failure;
    }
    return InPortWords(
        "No result became ready. Check the cable, the board's power, the mode register and {the "
        "port}. The chip still waits for the clocks of this access: a software reset brings the "
        "interface back in step.",
        port);
}

std::string MismatchDetail(const ParallelPort& port,
                           const RegisterMap::RegisterDescription& description,
                           std::int32_t written, std::int32_t readBack) {
    std::string detail = "Wrote " + RegisterHex(written, description.access) + ", read back " +
                         RegisterHex(readBack, description.access) + ".";
    for (const RegisterMap::Field& field : description.fields) {
        const auto was = RegisterMap::NameOfCode(field, field.CodeIn(written));
        const auto is = RegisterMap::NameOfCode(field, field.CodeIn(readBack));
        if (was && is && was != is) {
            detail += "\n" + std::string(field.title) + ": wrote " + std::string(*was) +
                      ", read back " + std::string(*is) + ".";
        }
    }
    constexpr std::string_view advice = "\nCheck the cable, the board's power and {the port}.";
    const std::string failure = port.FailureDetail();
    return detail + (failure.empty() ? InPortWords(advice, port) : "\n" + failure);
}

std::string CalibrationTimeoutDetail(const ParallelPort& port) {
    return InPortWords(
        "The data-ready line did not show the end of the calibration in time. Check the cable, the "
        "board's power and its {data-ready line}.",
        port);
}

std::optional<Message> CalibrationPrompt(std::int32_t mode) {
    switch (mode) {
        case RegisterMap::SystemZeroScale:
            return Message{.text = "Please Connect a Zero Scale signal to the Analog Input",
                           .icon = MessageIcon::Information};
        // The small "c" and the other icon are intentional.
        case RegisterMap::SystemFullScale:
            return Message{.text = "Please connect a Full Scale signal to the Analog Input",
                           .icon = MessageIcon::Question};
        default:
            return std::nullopt;
    }
}

}  // namespace vx3260::MessageTexts
