// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Register.h"

#include "link/Serial.h"
#include "numbers/Conversions.h"

namespace vx3260 {

double Register::ReadReg() {
    SerialWrite(parallelPort_, ReadAddress, portAddress_, 8);
    return SerialRead(parallelPort_, WordLength, portAddress_);
}

std::int32_t Register::ReadValue() {
    return ToInt32(ReadReg());
}

void Register::WriteReg() {
    SerialWrite(parallelPort_, WriteAddress, portAddress_, 8);
    SerialWrite(parallelPort_, ToInt32(RegValue), portAddress_, WordLength);
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
