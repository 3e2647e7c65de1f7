// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/ChipAnswers.h"

#include <utility>

#include "link/RegisterMap.h"

namespace vx3260 {
namespace {

std::int32_t AllOnes(std::int16_t bits) {
    return static_cast<std::int32_t>((std::uint32_t{1} << static_cast<unsigned>(bits)) - 1);
}

}  // namespace

void ChipAnswers::Wrote(std::int16_t writeByte, std::int16_t bits, std::int32_t value) {
    const auto address = RegisterMap::AddressIn(writeByte);
    lastWrite_ = Write{address, value & AllOnes(bits)};
}

void ChipAnswers::Read(std::int16_t readByte, std::int16_t bits, std::int32_t value) {
    const std::optional<Write> written = std::exchange(lastWrite_, std::nullopt);
    if (value != 0 && value != AllOnes(bits)) {
        last_ = Answer::Given;
        return;
    }
    const bool lost =
        written && written->address == RegisterMap::AddressIn(readByte) && written->value != value;
    // Bits 7 and 5 of the mode register are always 0.
    const bool impossible = readByte == RegisterMap::Mode.readByte && value != 0;
    if (lost || impossible) {
        last_ = Answer::Missing;
    }
}

void ChipAnswers::Forget() {
    *this = {};
}

void ChipAnswers::TimedOut() {
    lastWrite_.reset();
    last_ = Answer::Missing;
}

}  // namespace vx3260
