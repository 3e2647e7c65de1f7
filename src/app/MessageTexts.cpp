// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MessageTexts.h"

#include "link/RegisterMap.h"

namespace vx3260::MessageTexts {

std::string ConverterDisabled(Converter converter) {
    return "Enable " + std::string(TraitsOf(converter).name) + " ADC before reading Data";
}

std::string TimeoutDetail(const ParallelPort& port) {
    const std::string failure = port.FailureDetail();
    return failure + (failure.empty() ? "" : "\n") +
           "No result became ready. Check the cable, the board's power, the mode register and the "
           "printer port. The chip still waits for the clocks of this access: a software reset "
           "brings the interface back in step.";
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
