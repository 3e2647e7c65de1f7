// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/AuxCalForm.h"

#include "link/RegisterMap.h"
#include "ui/Fonts.h"
#include "ui_AuxCalForm.h"

namespace vx3260 {
namespace {

/// The correction of a negative entry is 256 by design: FFFF becomes 0x00FF.
constexpr CalibrationTraits auxTraits{.zeroScale = RegisterMap::AuxZeroScale,
                                      .fullScale = RegisterMap::AuxFullScale,
                                      .hexDigits = 4,
                                      .correction = 256,
                                      .largestEntry = 65535,
                                      .firstZeroLabel = 52,
                                      .firstFullLabel = 1};

}  // namespace

AuxCalForm::AuxCalForm(Services& services, QWidget* parent)
    : CalibrationForm(services, auxTraits, parent), ui_(std::make_unique<Ui::AuxCalForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->Label53);
    ShowBoardLabel(ui_->BadgeLabel);
    On(ui_->Command1, &QPushButton::clicked, &AuxCalForm::reject);
    Load({ui_->AuxZeroText, ui_->AuxZeroLabel}, {ui_->AuxFullText, ui_->AuxFullLabel});
}

AuxCalForm::~AuxCalForm() = default;

}  // namespace vx3260
