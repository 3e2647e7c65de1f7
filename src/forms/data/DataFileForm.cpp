// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/DataFileForm.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <algorithm>

#include "files/CodeFile.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"
#include "ui/NoSettingsFile.h"
#include "ui_DataFileForm.h"

namespace vx3260 {
namespace {

/// An empty line of this many rows keeps the place for the result, so that nothing moves.
constexpr int resultRows = 5;

/// The one file that is dragged; empty for anything else.
QString DraggedFile(const QDropEvent& event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
}

QString CodesText(std::int16_t count) {
    return QString::fromStdString(CountText(count, "code"));
}

}  // namespace

bool ChooseByLook(DataFileChoice& choice) {
    const std::string path = choice.path.toStdString();
    CheckIsNotDevice(path);
    const std::optional<Notation> look = LookOf(path);
    if (!look) {
        return false;
    }
    choice.notation = *look;
    const std::vector<std::int32_t> codes = LoadCodes(path, *look).codes;
    // Both converters have small codes.
    return *std::max_element(codes.begin(), codes.end()) > LargestCodeOf(Converter::Aux);
}

DataFileForm::DataFileForm(Services& services, const DataFileTraits& traits, DataFileChoice* choice,
                           QWidget* parent)
    : Form(services, parent),
      ui_(std::make_unique<Ui::DataFileForm>()),
      traits_(traits),
      choice_(choice) {
    ui_->setupUi(this);
    setWindowTitle(traits.title);
    ui_->HeadingLabel->setText(traits.heading);
    UseHeadingFont(ui_->HeadingLabel);
    ShowBoardLabel(ui_->BoardLabel);
    setAcceptDrops(true);
    ui_->Command1->setText(traits.command);
    ui_->ResultLabel->setMinimumHeight(resultRows * ui_->ResultLabel->fontMetrics().lineSpacing());
    const DataFileChoice begin = choice == nullptr ? DataFileChoice() : *choice;
    if (!begin.path.isEmpty()) {
        ui_->PathText->setText(begin.path);
    }
    (begin.notation == Notation::Decimal ? ui_->OptDecimal : ui_->OptHexadecimal)->setChecked(true);
    (begin.converter == Converter::Main ? ui_->OptMain : ui_->OptAux)->setChecked(true);
    SelectTextOnFocus(ui_->PathText);
    ui_->ConditionsBox->setVisible(traits.offersConditions);
    ShowCounts();
    ShowConditions();

    On(ui_->Command1, &QPushButton::clicked, &DataFileForm::RunChosen);
    On(ui_->PathText, &QLineEdit::returnPressed, &DataFileForm::RunChosen);
    On(ui_->OptMain, &QRadioButton::toggled, &DataFileForm::ShowConditions);
    On(ui_->Command2, &QPushButton::clicked, &DataFileForm::reject);
    On(ui_->Command3, &QPushButton::clicked, &DataFileForm::Browse);
}

DataFileForm::~DataFileForm() {
    if (choice_ != nullptr) {
        *choice_ = {ui_->PathText->text(), ChosenNotation(), ChosenConverter()};
    }
}

void DataFileForm::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(!DraggedFile(*event).isEmpty());
}

void DataFileForm::dropEvent(QDropEvent* event) {
    ui_->PathText->setText(QDir::toNativeSeparators(DraggedFile(*event)));
    event->acceptProposedAction();
}

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
    const FileDialog dialog(new QFileDialog(this, windowTitle(), ui_->PathText->text()));
    dialog->setAcceptMode(traits_.dialog);
    dialog->setFileMode(traits_.dialog == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                                  : QFileDialog::AnyFile);
    dialog->setNameFilters({tr("Data files (*.dat *.txt)"), tr("All files (*)")});
    dialog->setDefaultSuffix(QStringLiteral("dat"));
    // Asked when the file is written, for a typed path as for a chosen one.
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    const QFileInfo current(ui_->PathText->text());
    dialog->setDirectory(current.absolutePath());
    dialog->selectFile(current.fileName());
    if (dialog->exec() == QDialog::Accepted) {
        ui_->PathText->setText(QDir::toNativeSeparators(dialog->selectedFiles().constFirst()));
    }
}

void DataFileForm::ShowHint(const QString& text) {
    ui_->ResultLabel->setText(text);
}

QString DataFileForm::Run() {
    ui_->ResultLabel->clear();
    try {
        ui_->ResultLabel->setText(Process(Path()));
        ui_->ResultLabel->setToolTip(ui_->ResultLabel->text());
        GrowToTexts();
        ShowCounts();
    } catch (const std::runtime_error& error) {
        ShowFailure(error, traits_.failureDetail);
    }
    return ui_->ResultLabel->text();
}

std::string DataFileForm::Path() const {
    std::string path = ui_->PathText->text().toStdString();
    if (ui_->PathText->text().trimmed().isEmpty()) {
        throw FileAccessError("Enter the name of a file, or choose one with \"Browse...\"");
    }
    CheckIsNotDevice(path);
    return path;
}

bool DataFileForm::ConditionsWanted() {
    return ui_->ConditionsBox->isChecked() && ChosenConditions().has_value();
}

/// Disabled where there is nothing to write; the user's choice stays.
void DataFileForm::ShowConditions() {
    ui_->ConditionsBox->setEnabled(ChosenConditions().has_value());
}

void DataFileForm::ShowCounts() {
    ui_->MainCountLabel->setText(CodesText(State().MainCodeCount));
    ui_->AuxCountLabel->setText(CodesText(State().AuxCodeCount));
}

}  // namespace vx3260

#include "moc_DataFileForm.cpp"
