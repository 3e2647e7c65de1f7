// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/shell/ResetForm.h"

#include "link/Reset.h"
#include "ui/Fonts.h"
#include "ui_ResetForm.h"

namespace vx3260 {

ResetForm::ResetForm(Services& services, QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::ResetForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->Label1);
    ShowBoardLabel(ui_->BoardLabel);
    On(ui_->Command1, &QPushButton::clicked, &ResetForm::ResetByLine);
    On(ui_->Command2, &QPushButton::clicked, &ResetForm::ResetByOnes);
    On(ui_->Command3, &QPushButton::clicked, &ResetForm::reject);
}

ResetForm::~ResetForm() = default;

void ResetForm::ResetByLine() {
    HardwareReset(Shared().port, State().PortAddress);
    performed_ = tr("Hardware reset");
    accept();
}

void ResetForm::ResetByOnes() {
    SoftwareReset(Shared().port, State().PortAddress);
    performed_ = tr("Software reset");
    accept();
}

}  // namespace vx3260

#include "moc_ResetForm.cpp"
