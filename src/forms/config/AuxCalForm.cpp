// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/AuxCalForm.h"

namespace vx3260 {
namespace {

/// A negative entry is corrected by 256 only: FFFF is stored as 0x00FF; intentional.
constexpr CalibrationTraits auxCalibration{.converter = Converter::Aux, .correction = 256};

}  // namespace

AuxCalForm::AuxCalForm(Services& services, QWidget* parent)
    : CalibrationForm(services, auxCalibration, parent) {
    setObjectName(QStringLiteral("AuxCalForm"));
}

}  // namespace vx3260

#include "moc_AuxCalForm.cpp"
