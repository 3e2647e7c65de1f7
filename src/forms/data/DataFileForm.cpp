// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/DataFileForm.h"

#include <QFileInfo>

#include "files/CodeFile.h"
#include "numbers/NumberText.h"
#include "ui_DataFileForm.h"

namespace vx3260 {
namespace {

/// An empty line of this many rows keeps the place for the result, so that nothing moves.
constexpr int resultRows = 4;

QString CodesText(std::int16_t count) {
    return QString::fromStdString(CountText(count, "code"));
}

}  // namespace

DataFileForm::DataFileForm(Services& services, const DataFileTraits& traits, QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::DataFileForm>()), traits_(traits) {
    ui_->setupUi(this);
    setWindowTitle(traits.title);
    ui_->Command1->setText(traits.command);
    ui_->ResultLabel->setMinimumHeight(resultRows * ui_->ResultLabel->fontMetrics().lineSpacing());
    ui_->OptDecimal->setChecked(true);
    ui_->OptMain->setChecked(true);
    ui_->PathText->selectAll();
    ShowCounts();

    On(ui_->Command1, &QPushButton::clicked, &DataFileForm::Run);
    On(ui_->Command2, &QPushButton::clicked, &DataFileForm::reject);
    On(ui_->Command3, &QPushButton::clicked, &DataFileForm::Browse);
}

DataFileForm::~DataFileForm() = default;

Notation DataFileForm::ChosenNotation() const {
    return ui_->OptDecimal->isChecked() ? Notation::Decimal : Notation::Hexadecimal;
}

Converter DataFileForm::ChosenConverter() const {
    return ui_->OptMain->isChecked() ? Converter::Main : Converter::Aux;
}

QString DataFileForm::ChosenName() const {
    return QString::fromUtf8(TraitsOf(ChosenConverter()).name);
}

QString DataFileForm::ChosenCount() {
    return CodesText(ChosenBlock().count);
}

void DataFileForm::Browse() {
    QFileDialog dialog(this, windowTitle(), ui_->PathText->text());
    dialog.setAcceptMode(traits_.dialog);
    dialog.setFileMode(traits_.dialog == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                                 : QFileDialog::AnyFile);
    dialog.setNameFilters({tr("Data files (*.dat *.txt)"), tr("All files (*)")});
    dialog.setDefaultSuffix(QStringLiteral("dat"));
    // Asked when the file is written, for a typed path as for a chosen one.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    const QFileInfo current(ui_->PathText->text());
    dialog.setDirectory(current.absolutePath());
    dialog.selectFile(current.fileName());
    if (dialog.exec() == QDialog::Accepted) {
        ui_->PathText->setText(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()));
    }
}

void DataFileForm::Run() {
    ui_->ResultLabel->clear();
    try {
        ui_->ResultLabel->setText(Process(Path()));
        ui_->ResultLabel->setToolTip(ui_->ResultLabel->text());
        ShowCounts();
    } catch (const std::runtime_error& error) {
        ShowFailure(error, traits_.failureDetail);
    }
}

std::string DataFileForm::Path() const {
    std::string path = ui_->PathText->text().toStdString();
    if (ui_->PathText->text().trimmed().isEmpty()) {
        throw FileAccessError("Enter the name of a file, or choose one with \"Browse...\"");
    }
    CheckIsNotDevice(path);
    return path;
}

void DataFileForm::ShowCounts() {
    ui_->MainCountLabel->setText(CodesText(State().MainCodeCount));
    ui_->AuxCountLabel->setText(CodesText(State().AuxCodeCount));
}

}  // namespace vx3260

#include "moc_DataFileForm.cpp"
