// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/shell/ProgramForm.h"

#include "forms/config/AuxCalForm.h"
#include "forms/config/AuxControlForm.h"
#include "forms/config/IOControlForm.h"
#include "forms/config/MainCalForm.h"
#include "forms/config/MainControlForm.h"
#include "forms/config/ModeForm.h"
#include "forms/shell/RegisterForms.h"
#include "forms/shell/StatusForm.h"
#include "link/RegisterLookup.h"
#include "ui/Fonts.h"
#include "ui_ProgramForm.h"

namespace vx3260 {
ProgramForm::ProgramForm(Services& services, QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::ProgramForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->Label1);
    ShowBoardLabel(ui_->BoardLabel);
    On(ui_->Command1, &QPushButton::clicked, &ProgramForm::OpenForm<ModeForm>);
    On(ui_->Command2, &QPushButton::clicked, &ProgramForm::OpenFilterform);
    On(ui_->Command3, &QPushButton::clicked, &ProgramForm::OpenForm<MainCalForm>);
    On(ui_->Command4, &QPushButton::clicked, &ProgramForm::OpenForm<MainControlForm>);
    On(ui_->Command5, &QPushButton::clicked, &ProgramForm::OpenForm<IOControlForm>);
    On(ui_->Command6, &QPushButton::clicked, &ProgramForm::OpenForm<StatusForm>);
    On(ui_->Command7, &QPushButton::clicked, &ProgramForm::reject);
    On(ui_->Command8, &QPushButton::clicked, &ProgramForm::OpenForm<AuxControlForm>);
    On(ui_->Command9, &QPushButton::clicked, &ProgramForm::OpenForm<AuxCalForm>);
}

ProgramForm::~ProgramForm() = default;

void ProgramForm::OpenFilterform() {
    OpenRegisterForm(Shared(), RegisterMap::DescriptionOf(RegisterMap::Filter), this);
}

}  // namespace vx3260

#include "moc_ProgramForm.cpp"
