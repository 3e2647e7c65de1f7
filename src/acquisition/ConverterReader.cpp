// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ConverterReader.h"

#include "link/RegisterMap.h"
#include "link/Serial.h"

namespace vx3260 {

ConverterReader::ConverterReader(ParallelPort& parallelPort, const std::int16_t& portAddress,
                                 Converter converter)
    : parallelPort_(parallelPort),
      portAddress_(portAddress),
      converter_(converter),
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
    code_ = data_.Read();
    return code_;
}

void ConverterReader::CompleteWord() {
    // The chip took the second read's communications byte for clocks of the first word.
    constexpr std::int16_t commandBits = 8;
    if (code_ != ReadTimeout) {
        return;
    }
    const bool first = BothEnabled() && codeAlongside_ == ReadTimeout;
    const int bits = first ? otherData_.WordLength - commandBits : data_.WordLength;
    SerialRead(parallelPort_, static_cast<std::int16_t>(bits), portAddress_);
}

}  // namespace vx3260
