// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/LinePort.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "app/PrinterPorts.h"

namespace vx3260 {
namespace {

/// The levels of the outputs that a byte of the data register stands for.
LineLevels OutputsOf(std::uint8_t data) {
    LineLevels levels = 0;
    for (const LineRoleTraits& role : LineRoles) {
        if (role.output && (data & role.mask) != 0) {
            levels |= LevelBit(role.role);
        }
    }
    return levels;
}

/// The status register for these levels of the inputs; its other lines are high.
std::uint8_t StatusOf(LineLevels inputs) {
    int status = BoardLines::Undriven;
    for (const LineRoleTraits& role : LineRoles) {
        if (!role.output && (inputs & LevelBit(role.role)) == 0) {
            status &= ~role.mask;
        }
    }
    return static_cast<std::uint8_t>(status);
}

}  // namespace

LinePort::LinePort(std::unique_ptr<Lines> lines, LineNames names, std::chrono::nanoseconds pollTime)
    : DevicePort(DefaultPortAddress, pollTime), lines_(std::move(lines)), names_(std::move(names)) {
    for (const LineRoleTraits& role : LineRoles) {
        if (role.output && !names_.at(IndexOf(role.role)).empty()) {
            used_ |= LevelBit(role.role);
        }
    }
}

std::vector<WiredSignal> LinePort::Wiring() const {
    std::vector<WiredSignal> wiring;
    for (const LineRoleTraits& role : LineRoles) {
        if (const std::string& line = names_.at(IndexOf(role.role)); !line.empty()) {
            wiring.push_back({std::string(role.signal), line});
        }
    }
    return wiring;
}

bool LinePort::Claim() {
    outputs_ = OutputsOf(data_) & used_;
    return lines_->Claim(outputs_);
}

void LinePort::WriteRegister(std::int16_t offset, std::uint8_t value) {
    if (offset == BoardLines::ControlRegister) {
        control_ = value;
        return;
    }
    if (offset != BoardLines::DataRegister) {
        return;
    }
    data_ = value;
    const LineLevels before = std::exchange(outputs_, OutputsOf(value) & used_);
    if (before != outputs_) {
        lines_->Set(outputs_, before ^ outputs_);
    }
}

std::uint8_t LinePort::ReadRegister(std::int16_t offset) {
    switch (offset) {
        case BoardLines::DataRegister:
            return data_;
        case BoardLines::StatusRegister:
            return StatusOf(lines_->Get());
        default:
            return control_;
    }
}

/// At least as long as the slowest conversion, also where reads have no minimum time.
bool LinePort::WaitForLow(std::int16_t address, std::int16_t mask, std::int32_t polls) {
    if (!IsRegister(address, BoardLines::StatusRegister) || mask != BoardLines::NotReady) {
        return ParallelPort::WaitForLow(address, mask, polls);
    }
    return lines_->WaitForReady(polls * std::max(PollTime(), DefaultPollTime));
}

/// Only patterns that change a line and reads of the status register become steps.
void LinePort::Transfer(std::span<PortTransfer> accesses) {
    const bool ownRegisters = std::ranges::all_of(accesses, [this](const PortTransfer& access) {
        return IsRegister(access.address,
                          access.write ? BoardLines::DataRegister : BoardLines::StatusRegister);
    });
    if (!TransfersAtOnce() || !ownRegisters) {
        ParallelPort::Transfer(accesses);
        return;
    }
    std::vector<LineStep> steps;
    for (const PortTransfer& access : accesses) {
        if (access.write) {
            data_ = static_cast<std::uint8_t>(access.value);
            outputs_ = OutputsOf(data_) & used_;
        }
        steps.push_back({access.write, outputs_});
    }
    lines_->Exchange(steps);
    for (std::size_t i = 0; i < accesses.size(); ++i) {
        if (!accesses[i].write) {
            accesses[i].value = StatusOf(steps[i].levels);
        }
    }
}

}  // namespace vx3260
