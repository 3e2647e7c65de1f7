// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/CompareConfigurationForm.h"

#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>

#include "app/MessageTexts.h"
#include "configuration/ConfigurationFile.h"
#include "files/CodeFile.h"
#include "forms/tools/PresentConfiguration.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"
#include "ui/SaveDialog.h"
#include "ui/TableItems.h"
#include "ui/ValueTexts.h"
#include "ui_CompareConfigurationForm.h"

namespace vx3260 {
namespace {

constexpr int differenceColumns = 4;  // register, field, and a value on each side

}  // namespace

CompareConfigurationForm::CompareConfigurationForm(Services& services, QString* path,
                                                   QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::CompareConfigurationForm>()), path_(path) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->HeadingLabel);
    ShowBoardLabel(ui_->BoardLabel);
    setAcceptDrops(true);
    ui_->FileText->setText(*path);
    ui_->DifferencesTable->setColumnCount(differenceColumns);
    SelectTextOnFocus(ui_->FileText);
    SelectTextOnFocus(ui_->OtherText);
    UseOtherSide();
    On(ui_->FileText, &QLineEdit::returnPressed, &CompareConfigurationForm::Compare);
    On(ui_->OtherText, &QLineEdit::returnPressed, &CompareConfigurationForm::Compare);
    On(ui_->FileText, &QLineEdit::textChanged, &CompareConfigurationForm::Forget);
    On(ui_->OtherText, &QLineEdit::textChanged, &CompareConfigurationForm::Forget);
    On(ui_->OptChip, &QRadioButton::toggled, &CompareConfigurationForm::UseOtherSide);
    On(ui_->BrowseButton, &QPushButton::clicked, &CompareConfigurationForm::Browse);
    On(ui_->OtherBrowseButton, &QPushButton::clicked, &CompareConfigurationForm::BrowseOther);
    On(ui_->CompareButton, &QPushButton::clicked, &CompareConfigurationForm::Compare);
    On(ui_->RestoreButton, &QPushButton::clicked, &CompareConfigurationForm::Restore);
    On(ui_->BackButton, &QPushButton::clicked, &CompareConfigurationForm::reject);
}

CompareConfigurationForm::~CompareConfigurationForm() {
    *path_ = ui_->FileText->text();
}

void CompareConfigurationForm::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(event->mimeData()->urls().size() == 1 &&
                       event->mimeData()->urls().constFirst().isLocalFile());
}

void CompareConfigurationForm::dropEvent(QDropEvent* event) {
    ui_->FileText->setText(
        QDir::toNativeSeparators(event->mimeData()->urls().constFirst().toLocalFile()));
    event->acceptProposedAction();
    Guarded([this] { Compare(); });
}

void CompareConfigurationForm::BrowseInto(QLineEdit* edit) {
    const QString path = AskForExistingFile(this, windowTitle(), edit->text());
    if (!path.isEmpty()) {
        edit->setText(path);
        Compare();
    }
}

void CompareConfigurationForm::Browse() {
    BrowseInto(ui_->FileText);
}

void CompareConfigurationForm::BrowseOther() {
    BrowseInto(ui_->OtherText);
}

/// Only what is compared with the chip can be written to it.
void CompareConfigurationForm::UseOtherSide() {
    const bool chip = ui_->OptChip->isChecked();
    ui_->OtherText->setEnabled(!chip);
    ui_->OtherBrowseButton->setEnabled(!chip);
    Forget();
}

/// The table shows what was compared, so that nothing unseen is written.
void CompareConfigurationForm::Forget() {
    compared_.reset();
    ui_->DifferencesTable->setRowCount(0);
    ui_->DifferencesTable->setHorizontalHeaderLabels(
        {tr("Register"), tr("Field"), tr("File"), tr("Chip")});
    ui_->RestoreButton->setEnabled(false);
    ui_->ResultLabel->setText(tr("Choose a file that was saved, then \"Compare\"."));
}

/// Empty after a message.
std::optional<Configuration> CompareConfigurationForm::Load(QLineEdit* edit) {
    try {
        if (edit->text().trimmed().isEmpty()) {
            throw FileAccessError("Enter the name of a file, or choose one with \"Browse...\"");
        }
        return LoadChosenConfiguration(edit->text().toStdString());
    } catch (const std::runtime_error& error) {
        ShowFailure(error, "Nothing was written to the chip.");
        edit->setFocus();
        return std::nullopt;
    }
}

std::optional<Configuration> CompareConfigurationForm::ReadChip(const std::string& consequence) {
    std::optional<Configuration> present = ReadPresentConfiguration(Shared(), consequence);
    UpdateBoardLabel();
    return present;
}

void CompareConfigurationForm::Compare() {
    Forget();
    const std::optional<Configuration> file = Load(ui_->FileText);
    if (!file) {
        return;
    }
    const bool chip = ui_->OptChip->isChecked();
    const std::optional<Configuration> other =
        chip ? ReadChip("Nothing was compared.") : Load(ui_->OtherText);
    if (other) {
        ShowDifferences(*file, *other);
        compared_.emplace(*file);
        ui_->RestoreButton->setEnabled(chip);
    }
}

void CompareConfigurationForm::ShowDifferences(const Configuration& file,
                                               const Configuration& other) {
    const bool chip = ui_->OptChip->isChecked();
    QTableWidget& table = *ui_->DifferencesTable;
    table.setHorizontalHeaderLabels(
        {tr("Register"), tr("Field"), QFileInfo(ui_->FileText->text()).fileName(),
         chip ? tr("Chip") : QFileInfo(ui_->OtherText->text()).fileName()});
    const std::vector<FieldDifference> differences = DifferencesBetween(file, other);
    table.setRowCount(static_cast<int>(differences.size()));
    for (int row = 0; row < table.rowCount(); ++row) {
        const FieldDifference& difference = differences[static_cast<std::size_t>(row)];
        const std::string texts[] = {std::string(difference.description.name),
                                     std::string(difference.field.name),
                                     FieldValueText(difference.field, difference.left),
                                     FieldValueText(difference.field, difference.right)};
        for (int column = 0; column < differenceColumns; ++column) {
            TableItemAt(table, row, column).setText(ToQString(texts[column]));
        }
    }
    table.resizeColumnsToContents();
    ui_->ResultLabel->setText(
        differences.empty()
            ? tr("Nothing differs.")
            : ToQString(CountText(static_cast<std::int64_t>(differences.size()), "field") +
                        (differences.size() == 1 ? " differs." : " differ.")));
}

/// Writes what was compared, also where the file has changed since.
void CompareConfigurationForm::Restore() {
    const Configuration file = compared_.value();
    Forget();
    if (!ReadChip("Nothing was written.")) {
        return;
    }
    const std::vector<RestoredRegister> restored =
        RestoreConfiguration(Shared().port, State().PortAddress, file);
    const bool verified = MismatchesIn(restored).empty();
    const std::optional<Configuration> present =
        ReadChip(verified ? "What it holds now is not known." : RestoreReport(restored, false));
    if (!present) {
        return;
    }
    if (!verified) {
        ShowMessage({.text = std::string(MessageTexts::ErrorProgramming),
                     .icon = MessageIcon::Critical,
                     .detail = RestoreReport(restored, true)});
    }
    ShowDifferences(file, *present);
    compared_.emplace(file);
    ui_->RestoreButton->setEnabled(true);
    if (verified) {
        ui_->ResultLabel->setText(RestoredText(restored.size()));
    }
}

QString CompareConfigurationForm::RestoredText(std::size_t registers) const {
    return tr("%1 written, all verified.")
        .arg(ToQString(CountText(static_cast<std::int64_t>(registers), "register")));
}

}  // namespace vx3260

#include "moc_CompareConfigurationForm.cpp"
