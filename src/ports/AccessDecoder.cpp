// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/AccessDecoder.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "link/BoardLines.h"
#include "link/RegisterFields.h"
#include "link/RegisterMap.h"
#include "link/Reset.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

using RegisterMap::RegisterAccess;

constexpr std::int16_t communicationsBits = 8;

struct NamedRegister {
    std::string_view name;
    RegisterAccess access;
};

constexpr NamedRegister dataAndTestRegisters[] = {
    {"main-data", RegisterMap::MainData},
    {"aux-data", RegisterMap::AuxData},
    {"test1", RegisterMap::Test1},
    {"test2", RegisterMap::Test2},
};

constexpr auto allRegisters = [] {
    std::array<NamedRegister,
               std::size(RegisterMap::ReadableRegisters) + std::size(dataAndTestRegisters)>
        all{};
    auto* const others = std::transform(std::begin(RegisterMap::ReadableRegisters),
                                        std::end(RegisterMap::ReadableRegisters), all.begin(),
                                        [](const RegisterMap::RegisterDescription& r) {
                                            return NamedRegister{r.name, r.access};
                                        });
    std::copy(std::begin(dataAndTestRegisters), std::end(dataAndTestRegisters), others);
    return all;
}();

/// The register that a communications byte reaches, if any. A byte of 0 is none, though it stands
/// in the table for an access that a register does not have.
const NamedRegister* RegisterReachedBy(std::int32_t byte) {
    const auto* const found =
        std::find_if(allRegisters.begin(), allRegisters.end(), [byte](const NamedRegister& r) {
            return r.access.readByte == byte || r.access.writeByte == byte;
        });
    return byte == 0 || found == allRegisters.end() ? nullptr : found;
}

std::string HexOfBits(std::int32_t value, std::int16_t bits) {
    return HexText(value, bits / 4);
}

bool IsHigh(std::int16_t outputs, std::int16_t line) {
    return (outputs & line) != 0;
}

}  // namespace

/// A bit is shifted on the rising clock edge. No bits are shifted in during reset.
void AccessDecoder::Step(std::int16_t outputs, bool dout) {
    const bool din = IsHigh(outputs, BoardLines::Din);
    const bool inReset = !IsHigh(outputs, BoardLines::Reset);
    const bool rising = IsHigh(outputs, BoardLines::Clock) && !clockHigh_;
    clockHigh_ = IsHigh(outputs, BoardLines::Clock);
    CountOnes(rising, din, inReset);
    if (inReset || onesInARow_ == OnesThatReset) {
        text_ = onesInARow_ == OnesThatReset ? "software reset" : "hardware reset";
        AwaitCommunicationsByte();
    } else if (rising) {
        Shift(reading_ ? dout : din);
    }
}

/// During a software reset the line goes low with each one bit; otherwise it restarts the count.
void AccessDecoder::CountOnes(bool rising, bool din, bool inReset) {
    if (onesInARow_ == OnesThatReset || (rising ? !din : inReset)) {
        onesInARow_ = 0;
    }
    if (rising && din) {
        ++onesInARow_;
    }
}

void AccessDecoder::Shift(bool bit) {
    shifted_ = shifted_ << 1 | (bit ? 1 : 0);
    if (--bitsLeft_ > 0) {
        return;
    }
    if (inWord_) {
        EndWord();
    } else {
        EndCommunicationsByte();
    }
}

void AccessDecoder::EndCommunicationsByte() {
    const std::int32_t byte = shifted_;
    AwaitCommunicationsByte();
    const NamedRegister* const reached = RegisterReachedBy(byte);
    if (reached == nullptr) {
        text_ = "unknown byte " + HexOfBits(byte, communicationsBits);
        return;
    }
    inWord_ = true;
    reading_ = byte == reached->access.readByte;
    wordLength_ = reached->access.wordLength;
    bitsLeft_ = wordLength_;
    text_ = (reading_ ? "read " : "write ") + std::string(reached->name);
}

void AccessDecoder::EndWord() {
    text_ += " = " + HexOfBits(shifted_, wordLength_);
    AwaitCommunicationsByte();
}

void AccessDecoder::AwaitCommunicationsByte() {
    inWord_ = false;
    reading_ = false;
    bitsLeft_ = communicationsBits;
    shifted_ = 0;
}

}  // namespace vx3260
