// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/ReadMainDataForm.h"

#include "analysis/forms/MainNoiseForm.h"
#include "ui_ReadMainDataForm.h"

namespace vx3260 {

ReadMainDataForm::ReadMainDataForm(Services& services, QWidget* parent)
    : BlockReadingForm(services, Converter::Main, parent),
      ui_(std::make_unique<Ui::ReadMainDataForm>()) {
    ui_->setupUi(this);
    LoadTwin(*ui_);
}

ReadMainDataForm::~ReadMainDataForm() = default;

void ReadMainDataForm::OpenNoiseForm() {
    OpenForm<MainNoiseForm>();
}

}  // namespace vx3260

#include "moc_ReadMainDataForm.cpp"
