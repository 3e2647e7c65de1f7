// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/shell/StatusForm.h"

#include "link/Register.h"
#include "ui/Fonts.h"
#include "ui/ValueTexts.h"
#include "ui_StatusForm.h"

namespace vx3260 {

StatusForm::StatusForm(Services& services, QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::StatusForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->Label9);
    UseValueFont(ui_->StatusLabel);
    ShowBoardLabel(ui_->BoardLabel);
    On(ui_->Command1, &QPushButton::clicked, &StatusForm::reject);

    const std::int32_t value =
        ReadRegister(services.port, services.state.PortAddress, RegisterMap::Status);
    ui_->Bits->MakeCells();
    ui_->Bits->ShowValue(value);
    const int widestHeading = ui_->Label15->sizeHint().width();
    ui_->Bits->SetMinCellWidth(widestHeading);
    ShowHex(ui_->StatusLabel, value);
}

StatusForm::~StatusForm() = default;

}  // namespace vx3260

#include "moc_StatusForm.cpp"
