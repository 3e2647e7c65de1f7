// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Register.h"

#include "link/Serial.h"
#include "numbers/Conversions.h"

namespace vx3260 {

double Register::ReadReg() {
    SerialWrite(parallelPort_, ReadAddress, portAddress_, 8);
    const double value = SerialRead(parallelPort_, WordLength, portAddress_);
    const std::int32_t contents = ToInt32(value);
    parallelPort_.Answers().Read(ReadAddress, WordLength, contents);
    if (parallelPort_.Answers().Last() == ChipAnswers::Answer::Missing) {
        parallelPort_.Registers().Forget(Access());
    } else {
        parallelPort_.Registers().Read(Access(), contents);
    }
    return value;
}

std::int32_t Register::ReadValue() {
    return ToInt32(ReadReg());
}

void Register::WriteReg() {
    SerialWrite(parallelPort_, WriteAddress, portAddress_, 8);
    const std::int32_t value = ToInt32(RegValue);
    SerialWrite(parallelPort_, value, portAddress_, WordLength);
    parallelPort_.Answers().Wrote(WriteAddress, WordLength, value);
    parallelPort_.Registers().Wrote(Access(), value);
}

void Register::WriteValue(double value) {
    RegValue = value;
    WriteReg();
}

std::int32_t ReadRegister(ParallelPort& parallelPort, const std::int16_t& portAddress,
                          const RegisterMap::RegisterAccess& access) {
    return Register(parallelPort, portAddress, access).ReadValue();
}

}  // namespace vx3260
