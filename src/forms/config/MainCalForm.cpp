// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/MainCalForm.h"

namespace vx3260 {
namespace {

/// A negative entry is corrected by 2^16 although the register has 24 bits: FFFF is stored as
/// 0x00FFFF; intentional.
constexpr CalibrationTraits mainCalibration{.converter = Converter::Main, .correction = 65536};

}  // namespace

MainCalForm::MainCalForm(Services& services, QWidget* parent)
    : CalibrationForm(services, mainCalibration, parent) {
    setObjectName(QStringLiteral("MainCalForm"));
}

}  // namespace vx3260

#include "moc_MainCalForm.cpp"
