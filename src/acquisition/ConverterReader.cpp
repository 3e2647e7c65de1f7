#include "acquisition/ConverterReader.h"

#include "link/RegisterMap.h"
#include "numbers/Conversions.h"

namespace vx3260 {
namespace {

bool ReadEnableBit(Register& control) {
    return (ToInt16(control.ReadReg()) & RegisterMap::EnableMask) != 0;
}

}  // namespace

ConverterReader::ConverterReader(ParallelPort& parallelPort, const std::int16_t& portAddress,
                                 Converter converter)
    : converter_(converter),
      data_(parallelPort, portAddress, TraitsOf(converter).data),
      twinData_(parallelPort, portAddress, TraitsOf(TwinOf(converter)).data),
      mainControl_(parallelPort, portAddress, RegisterMap::MainControl),
      auxControl_(parallelPort, portAddress, RegisterMap::AuxControl) {}

void ConverterReader::ReadEnables() {
    mainEnabled_ = ReadEnableBit(mainControl_);
    auxEnabled_ = ReadEnableBit(auxControl_);
}

std::int32_t ConverterReader::ReadCode() {
    if (BothEnabled()) {
        codeAlongside_ = twinData_.Read();
    }
    return data_.Read();
}

}  // namespace vx3260
