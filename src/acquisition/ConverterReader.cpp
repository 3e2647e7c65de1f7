// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ConverterReader.h"

#include "link/RegisterMap.h"

namespace vx3260 {
ConverterReader::ConverterReader(ParallelPort& parallelPort, const std::int16_t& portAddress,
                                 Converter converter)
    : converter_(converter),
      data_(parallelPort, portAddress, TraitsOf(converter).data),
      twinData_(parallelPort, portAddress, TraitsOf(OtherConverter(converter)).data),
      mainControl_(parallelPort, portAddress, RegisterMap::MainControl),
      auxControl_(parallelPort, portAddress, RegisterMap::AuxControl) {}

void ConverterReader::ReadControls() {
    mainControlValue_ = static_cast<std::int16_t>(mainControl_.ReadValue());
    auxControlValue_ = static_cast<std::int16_t>(auxControl_.ReadValue());
}

bool ConverterReader::Enabled(Converter converter) const {
    return (Control(converter) & RegisterMap::EnableMask) != 0;
}

std::int32_t ConverterReader::ReadCode() {
    if (BothEnabled()) {
        codeAlongside_ = twinData_.Read();
    }
    return data_.Read();
}

}  // namespace vx3260
