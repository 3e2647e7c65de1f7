// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/shell/StatusForm.h"

#include "link/Register.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "ui/BitRow.h"
#include "ui/Fonts.h"
#include "ui_StatusForm.h"

namespace vx3260 {

StatusForm::StatusForm(Services& services, QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::StatusForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->Label9);
    UseValueFont(ui_->StatusLabel);
    ShowBoardLabel(ui_->BadgeLabel);
    On(ui_->Command1, &QPushButton::clicked, &StatusForm::reject);

    Register status(services.port, services.state.PortAddress, RegisterMap::Status);
    const std::int16_t value = ToInt16(status.ReadReg());
    const std::vector<QLabel*> bits{ui_->Label1, ui_->Label2, ui_->Label3, ui_->label4,
                                    ui_->Label5, ui_->Label6, ui_->Label7, ui_->Label8};
    std::vector<QString> names;
    for (const QLabel* heading : {ui_->Label10, ui_->Label16, ui_->Label11, ui_->Label15,
                                  ui_->Label12, ui_->Label17, ui_->Label14, ui_->Label13}) {
        names.push_back(heading->text());
    }
    BitRow(bits, names).Show(value);
    const int widestHeading = ui_->Label15->sizeHint().width();
    for (QLabel* bit : bits) {
        bit->setMinimumWidth(widestHeading);
    }
    ui_->StatusLabel->setText(QString::fromStdString(HexText(value)));
}

StatusForm::~StatusForm() = default;

}  // namespace vx3260
