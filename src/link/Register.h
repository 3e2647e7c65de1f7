// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/ParallelPort.h"
#include "link/RegisterMap.h"

namespace vx3260 {

/// One chip register that can be read and written. The properties only store; the operations use
/// the port address in force at the moment of the call. No operation detects a missing board.
class Register {
  public:
    /// Both references must outlive the object. Properties for an access to the given register.
    Register(ParallelPort& parallelPort, const std::int16_t& portAddress,
             const RegisterMap::RegisterAccess& access)
        : WordLength(access.wordLength),
          ReadAddress(access.readByte),
          WriteAddress(access.writeByte),
          parallelPort_(parallelPort),
          portAddress_(portAddress) {}

    std::int16_t WordLength;    ///< bits of the register
    std::int16_t ReadAddress;   ///< whole communications byte that reads it
    std::int16_t WriteAddress;  ///< whole communications byte that writes it
    double RegValue = 0;        ///< what the next WriteReg sends

    /// The register's contents, 0 to 2^WordLength - 1. RegValue stays as it is.
    double ReadReg();

    /// ReadReg as an integer.
    std::int32_t ReadValue();

    /// Sends RegValue, rounded to an integer (halves to even): the low WordLength bits of its
    /// two's complement. Throws OverflowError, after the communications byte has been sent, when
    /// RegValue does not fit 32 bits.
    void WriteReg();

    /// Stores the value in RegValue and sends it with WriteReg.
    void WriteValue(double value);

  private:
    RegisterMap::RegisterAccess Access() const { return {WriteAddress, ReadAddress, WordLength}; }

    ParallelPort& parallelPort_;
    const std::int16_t& portAddress_;
};

/// The contents of a register, read once. Arguments as for a Register.
std::int32_t ReadRegister(ParallelPort& parallelPort, const std::int16_t& portAddress,
                          const RegisterMap::RegisterAccess& access);

}  // namespace vx3260
