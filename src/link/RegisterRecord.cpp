// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/RegisterRecord.h"

namespace vx3260 {
namespace {

std::size_t AddressOf(const RegisterMap::RegisterAccess& access) {
    const std::int16_t byte = access.readByte != 0 ? access.readByte : access.writeByte;
    return static_cast<std::size_t>(RegisterMap::AddressIn(byte));
}

bool IsMode(const RegisterMap::RegisterAccess& access) {
    return AddressOf(access) == AddressOf(RegisterMap::Mode);
}

}  // namespace

RegisterSnapshot::RegisterSnapshot() {
    for (Cell& cell : cells_) {
        cell = std::make_shared<std::optional<std::int32_t>>();
    }
}

void RegisterSnapshot::Set(const RegisterMap::RegisterAccess& access, std::int32_t value) {
    CellOf(access) = std::make_shared<std::optional<std::int32_t>>(value);
}

const RegisterSnapshot::Cell& RegisterSnapshot::CellOf(
    const RegisterMap::RegisterAccess& access) const {
    return cells_.at(AddressOf(access));
}

RegisterSnapshot::Cell& RegisterSnapshot::CellOf(const RegisterMap::RegisterAccess& access) {
    return cells_.at(AddressOf(access));
}

void RegisterRecord::Wrote(const RegisterMap::RegisterAccess& access, std::int32_t value) {
    Set(access, value);
    ForgetWhatTheModeChanges(access, value);
}

void RegisterRecord::Read(const RegisterMap::RegisterAccess& access, std::int32_t value) {
    const Cell& cell = CellOf(access);
    if (!cell->has_value()) {
        *cell = value;
    } else if (*cell != value) {
        // The chip ignored the write, or changed the register by itself.
        Set(access, value);
    }
    ForgetWhatTheModeChanges(access, value);
}

void RegisterRecord::Forget(const RegisterMap::RegisterAccess& access) {
    CellOf(access) = std::make_shared<std::optional<std::int32_t>>();
}

void RegisterRecord::Forget() {
    *this = {};
}

/// At the end of a single conversion and of a calibration the chip changes its mode, and a
/// calibration changes coefficients.
void RegisterRecord::ForgetWhatTheModeChanges(const RegisterMap::RegisterAccess& access,
                                              std::int32_t value) {
    if (!IsMode(access) || !RegisterMap::EndsByItself(value)) {
        return;
    }
    Forget(access);
    if (!RegisterMap::IsCalibration(value)) {
        return;
    }
    for (const RegisterMap::RegisterAccess& coefficient :
         {RegisterMap::MainZeroScale, RegisterMap::MainFullScale, RegisterMap::AuxZeroScale,
          RegisterMap::AuxFullScale}) {
        Forget(coefficient);
    }
}

}  // namespace vx3260
