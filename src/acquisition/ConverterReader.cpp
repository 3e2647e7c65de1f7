// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ConverterReader.h"

#include "link/RegisterMap.h"

namespace vx3260 {

ConverterReader::ConverterReader(ParallelPort& parallelPort, const std::int16_t& portAddress,
                                 Converter converter)
    : converter_(converter),
      data_(parallelPort, portAddress, TraitsOf(converter).data),
      otherData_(parallelPort, portAddress, TraitsOf(OtherConverter(converter)).data),
      mainControl_(parallelPort, portAddress, RegisterMap::MainControl),
      auxControl_(parallelPort, portAddress, RegisterMap::AuxControl) {}

void ConverterReader::ReadControls() {
    mainControlValue_ = mainControl_.ReadValue();
    auxControlValue_ = auxControl_.ReadValue();
}

bool ConverterReader::Enabled(Converter converter) const {
    return RegisterMap::IsEnabled(Control(converter));
}

std::int32_t ConverterReader::ReadCode() {
    if (BothEnabled()) {
        codeAlongside_ = otherData_.Read();
    }
    return data_.Read();
}

}  // namespace vx3260
