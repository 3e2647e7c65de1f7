// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/shell/ProgramForm.h"

#include "app/MessageTexts.h"
#include "forms/config/AuxCalForm.h"
#include "forms/config/AuxControlForm.h"
#include "forms/config/Filterform.h"
#include "forms/config/IOControlForm.h"
#include "forms/config/MainCalForm.h"
#include "forms/config/MainControlForm.h"
#include "forms/config/ModeForm.h"
#include "forms/shell/StatusForm.h"
#include "link/Register.h"
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
    const std::int32_t mode = ReadRegister(Shared().port, State().PortAddress, RegisterMap::Mode);
    if (!RegisterMap::IsPowerDown(mode)) {
        ShowMessage({.text = std::string(MessageTexts::FilterNeedsPowerDown),
                     .icon = MessageIcon::Exclamation});
        return;
    }
    OpenForm<Filterform>();
}

}  // namespace vx3260

#include "moc_ProgramForm.cpp"
