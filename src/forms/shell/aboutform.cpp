// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/shell/aboutform.h"

#include "app/ApplicationInfo.h"
#include "app/SystemInformation.h"
#include "ui/Fonts.h"
#include "ui/Icons.h"
#include "ui_aboutform.h"

namespace vx3260 {
namespace {

constexpr int iconSize = 64;

}  // namespace

aboutform::aboutform(Services& services, QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::aboutform>()) {
    ui_->setupUi(this);
    const QString title = QString::fromUtf8(ApplicationTitle);
    setWindowTitle(QStringLiteral("About ") + title);
    ui_->lblVersion->setText(QStringLiteral("Version %1.%2.%3")
                                 .arg(VersionMajor)
                                 .arg(VersionMinor)
                                 .arg(VersionRevision));
    ui_->lblTitle->setText(title);
    UseHeadingFont(ui_->lblTitle);
    ui_->picIcon->setPixmap(ApplicationIcon().pixmap(QSize(iconSize, iconSize)));
    ShowBoardLabel(ui_->BoardLabel);
    On(ui_->cmdOK, &QPushButton::clicked, &aboutform::accept);
    On(ui_->cmdSysInfo, &QPushButton::clicked, &aboutform::ShowSystemInformation);
}

aboutform::~aboutform() = default;

void aboutform::ShowSystemInformation() {
    StartSysInfo(Shared());
}

}  // namespace vx3260

#include "moc_aboutform.cpp"
