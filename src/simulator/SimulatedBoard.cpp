// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/SimulatedBoard.h"

namespace vx3260 {
namespace {

constexpr unsigned dataRegister = 0;
constexpr unsigned statusRegister = 1;
constexpr unsigned controlRegister = 2;

constexpr std::uint8_t inputsInsteadOfOutputs = 0x20;

/// Status lines that the board leaves open read 1.
constexpr std::uint8_t openStatusLines = 0xAF;

}  // namespace

void SimulatedBoard::Write(unsigned offset, std::uint8_t value) {
    Tick();
    if (offset == dataRegister) {
        data_ = value;
        DriveLines();
    } else if (offset == controlRegister) {
        control_ = value;
        DriveLines();
    }
}

std::uint8_t SimulatedBoard::Read(unsigned offset) {
    Tick();
    switch (offset) {
        case statusRegister: {
            const unsigned dout = chip_.Dout() ? 0x10U : 0U;
            const unsigned notReady = chip_.Ready() ? 0U : 0x40U;
            return static_cast<std::uint8_t>(openStatusLines | dout | notReady);
        }
        case dataRegister:
            return data_;
        case controlRegister:
            return control_;
        default:
            return 0xFF;
    }
}

void SimulatedBoard::DriveLines() {
    if ((control_ & inputsInsteadOfOutputs) != 0) {
        return;
    }
    chip_.SetLines((data_ & 0x08) != 0, (data_ & 0x01) != 0, (data_ & 0x02) != 0);
}

}  // namespace vx3260
