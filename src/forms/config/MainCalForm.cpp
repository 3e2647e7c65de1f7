// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/MainCalForm.h"

#include "link/RegisterMap.h"
#include "ui/Fonts.h"
#include "ui_MainCalForm.h"

namespace vx3260 {
namespace {

/// Of a 24-bit register as well, a negative entry is corrected by 2^16: FFFF is 0x00FFFF.
constexpr CalibrationTraits mainTraits{.zeroScale = RegisterMap::MainZeroScale,
                                       .fullScale = RegisterMap::MainFullScale,
                                       .hexDigits = 6,
                                       .correction = 65536,
                                       .largestEntry = 16777215,
                                       .firstZeroLabel = 52,
                                       .firstFullLabel = 1};

}  // namespace

MainCalForm::MainCalForm(Services& services, QWidget* parent)
    : CalibrationForm(services, mainTraits, parent), ui_(std::make_unique<Ui::MainCalForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->Label53);
    ShowBoardLabel(ui_->BadgeLabel);
    On(ui_->Command1, &QPushButton::clicked, &MainCalForm::reject);
    Load({ui_->MainZeroText, ui_->MainZeroLabel}, {ui_->MainFullText, ui_->MainFullLabel});
}

MainCalForm::~MainCalForm() = default;

}  // namespace vx3260
