// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/SaveConfigurationForm.h"

#include <QDir>
#include <QFileInfo>
#include <array>

#include "files/CodeFile.h"
#include "forms/tools/PresentConfiguration.h"
#include "ui/Fonts.h"
#include "ui/SaveDialog.h"
#include "ui_SaveConfigurationForm.h"

namespace vx3260 {

SaveConfigurationForm::SaveConfigurationForm(Services& services, QString* path, QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::SaveConfigurationForm>()), path_(path) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->HeadingLabel);
    ShowBoardLabel(ui_->BoardLabel);
    On(ui_->SaveButton, &QPushButton::clicked, &SaveConfigurationForm::Save);
    On(ui_->BackButton, &QPushButton::clicked, &SaveConfigurationForm::reject);
}

SaveConfigurationForm::~SaveConfigurationForm() = default;

SaveConfigurationForm::Format SaveConfigurationForm::ChosenFormat() const {
    const std::pair<QRadioButton*, Format> formats[] = {
        {ui_->OptHeader, {{tr("C Header (*.h)"), QStringLiteral("h")}, ExportFormat::C}},
        {ui_->OptJson, {{tr("JSON (*.json)"), QStringLiteral("json")}, ExportFormat::Json}},
        {ui_->OptCsv, {{tr("CSV (*.csv)"), QStringLiteral("csv")}, ExportFormat::Csv}}};
    for (const auto& [option, format] : formats) {
        if (option->isChecked()) {
            return format;
        }
    }
    return {{tr("Configuration (*.vx3260)"), QStringLiteral("vx3260")}, std::nullopt};
}

std::string SaveConfigurationForm::TextOf(const Configuration& configuration,
                                          const Format& format) const {
    const Coefficients coefficients =
        ui_->CoefficientsBox->isChecked() ? Coefficients::Include : Coefficients::LeaveOut;
    const ConfigurationHead head = PresentHead(Shared());
    return format.firmware ? ExportText(configuration, head, coefficients, *format.firmware)
                           : ConfigurationText(configuration, head, coefficients);
}

/// The registers are read before the name is asked for: what is saved is what was there then.
void SaveConfigurationForm::Save() {
    ui_->ResultLabel->clear();
    const std::optional<Configuration> present =
        ReadPresentConfiguration(Shared(), "Nothing was saved.");
    if (!present) {
        return;
    }
    try {
        const Format format = ChosenFormat();
        const FileKind& kind = format.kind;
        const std::string text = TextOf(*present, format);
        const QString name = QStringLiteral("configuration.") + kind.suffix;
        const ChosenFile file = AskForFile(
            this, path_->isEmpty() ? name : QFileInfo(*path_).dir().filePath(name), {kind});
        if (file.path.isEmpty()) {
            return;
        }
        ReplaceFile(file.NativePath(), text);
        if (!format.firmware) {
            *path_ = QDir::toNativeSeparators(file.path);
        }
        ui_->ResultLabel->setText(tr("Wrote %1").arg(QDir::toNativeSeparators(file.path)));
        GrowToTexts();
    } catch (const std::runtime_error& error) {
        ShowFailure(error, "Nothing was saved.");
    }
}

}  // namespace vx3260

#include "moc_SaveConfigurationForm.cpp"
