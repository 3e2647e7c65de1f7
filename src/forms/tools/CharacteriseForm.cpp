// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/CharacteriseForm.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTabBar>
#include <algorithm>
#include <array>
#include <utility>

#include "acquisition/ProgressText.h"
#include "acquisition/ReadyLine.h"
#include "analysis/ReadingTexts.h"
#include "analysis/forms/AuxNoiseForm.h"
#include "analysis/forms/CountRefusal.h"
#include "analysis/forms/MainNoiseForm.h"
#include "app/BoardState.h"
#include "characterisation/Report.h"
#include "characterisation/Tables.h"
#include "files/CodeFile.h"
#include "files/ConditionsFile.h"
#include "forms/tools/NoiseTableWidget.h"
#include "forms/tools/PlanEntry.h"
#include "forms/tools/ReportPdf.h"
#include "link/Register.h"
#include "link/RegisterLookup.h"
#include "numbers/FileErrors.h"
#include "numbers/NumberText.h"
#include "ui/EntryError.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"
#include "ui/PositiveEntry.h"
#include "ui/SaveDialog.h"
#include "ui_CharacteriseForm.h"

namespace vx3260 {
namespace {

/// How often progress is drawn at most.
constexpr qint64 drawingMilliseconds = 40;

std::array<std::int32_t, 2> PresentChannels(Services& services) {
    std::array<std::int32_t, 2> channels{};
    for (const Converter converter : {Converter::Main, Converter::Aux}) {
        const std::int32_t control =
            ReadRegister(services.port, services.state.PortAddress, TraitsOf(converter).control);
        channels.at(converter == Converter::Main ? 0 : 1) = ChannelField(converter).CodeIn(control);
    }
    return channels;
}

std::string SummaryOf(const CharacterisationResults& results) {
    const CharacterisationPlan& plan = results.plan;
    const auto settings = static_cast<std::int64_t>(SettingsOf(plan).size());
    return std::string(TraitsOf(plan.converter).name) + " ADC, " +
           UpperCase(RegisterMap::TextOfCode(ChannelField(plan.converter), plan.channel)) + ", " +
           BoardText(results.board) + ", " + TimeText(results.start) + ": " +
           std::to_string(results.rows.size()) + " of " + CountText(settings, "setting") +
           " measured";
}

bool SameCodes(std::span<const double> present, const std::vector<double>& codes) {
    return std::equal(present.begin(), present.end(), codes.begin(), codes.end());
}

/// The place of a value in a list, as a table's line or column.
int PlaceOf(const std::vector<std::int32_t>& values, std::int32_t value) {
    return static_cast<int>(std::find(values.begin(), values.end(), value) - values.begin());
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : "\n") + line;
    }
    return text;
}

}  // namespace

CharacteriseForm::CharacteriseForm(Services& services, QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::CharacteriseForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->HeadingLabel);
    ShowBoardLabel(ui_->BoardLabel);
    ui_->SweepProgressBar->reset();
    ui_->SweepProgressBar->setFormat({});
    ui_->TablesTab->tabBar()->setAccessibleName(ui_->TablesTab->accessibleName());
    tables_ = {{Polarity::Bipolar, ui_->BipolarTable}, {Polarity::Unipolar, ui_->UnipolarTable}};
    entry_ = new PlanEntry({ui_->OptMain, ui_->OptAux, ui_->ChannelBox, ui_->RangesList,
                            ui_->AllButton, ui_->NoneButton, ui_->WordsText, ui_->PolarityBox,
                            ui_->CountText, ui_->SettleText, ui_->CalibrateBox},
                           PresentChannels(services), this);
    reference_ = new PositiveEntry(ui_->RefText, State().ReferenceVoltage, "#.00",
                                   tr("Enter a voltage of 0.01 V or more. %1 V stays in use."));
    ConnectControls();
    ShowEstimate();
}

CharacteriseForm::~CharacteriseForm() = default;

void CharacteriseForm::ConnectControls() {
    SelectTextOnFocus(ui_->RefText);
    SelectTextOnFocus(ui_->FolderText);
    On(entry_, &PlanEntry::Changed, &CharacteriseForm::ShowEstimate);
    On(ui_->BrowseButton, &QPushButton::clicked, &CharacteriseForm::Browse);
    On(ui_->OpenButton, &QPushButton::clicked, &CharacteriseForm::OpenFolder);
    On(ui_->FolderText, &QLineEdit::editingFinished, &CharacteriseForm::ShowTypedFolder);
    On(ui_->StartButton, &QPushButton::clicked, &CharacteriseForm::Start);
    On(ui_->StopButton, &QPushButton::clicked, &CharacteriseForm::Stop);
    On(ui_->TableBox, &QComboBox::currentIndexChanged, &CharacteriseForm::ShowTables);
    On(ui_->ReportButton, &QPushButton::clicked, &CharacteriseForm::SaveReport);
    On(ui_->BackButton, &QPushButton::clicked, &CharacteriseForm::reject);
    for (const PolarityTable& table : tables_) {
        connect(
            table.widget, &QTableWidget::cellDoubleClicked, this,
            [=, this](int line, int column) { Guarded([&] { OpenCell(table, line, column); }); });
        OnKeyPress(table.widget, [=, this](const QKeyEvent& key) {
            if (IsEnter(key)) {
                Guarded([&] {
                    OpenCell(table, table.widget->currentRow(), table.widget->currentColumn());
                });
            }
            return IsEnter(key);
        });
    }
}

void CharacteriseForm::changeEvent(QEvent* event) {
    Form::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        ShowTables();
    }
}

void CharacteriseForm::reject() {
    if (!running_) {
        Form::reject();
        return;
    }
    closeRequested_ = true;
    stopRequested_ = true;
}

CharacterisationPlan CharacteriseForm::Plan() {
    CharacterisationPlan plan = entry_->Plan();
    plan.referenceVoltage = State().ReferenceVoltage;
    return plan;
}

std::string CharacteriseForm::Folder() const {
    const QString path = ui_->FolderText->text().trimmed();
    if (path.isEmpty()) {
        throw FileAccessError("Enter the name of a folder, or choose one with \"Browse...\"");
    }
    return path.toStdString();
}

void CharacteriseForm::ShowEstimate() {
    entry_->Mark();
    std::string text;
    try {
        const CharacterisationPlan plan = Plan();
        text = SweepText(plan, SettingsOf(plan));
    } catch (const EntryError& error) {
        text = error.Advice();
    } catch (const std::invalid_argument& error) {
        text = error.what();
    }
    ui_->EstimateLabel->setText(QString::fromStdString(text));
}

bool CharacteriseForm::Ask(const std::string& text, MessageIcon icon, const std::string& detail) {
    return ShowMessage(
               {.text = text, .icon = icon, .buttons = MessageButtons::YesNo, .detail = detail}) ==
           MessageAnswer::Yes;
}

std::optional<FolderUse> CharacteriseForm::AskForUse(const std::string& path,
                                                     const CharacterisationPlan& plan) {
    const auto replaced = [this](const std::string& text, const std::string& detail) {
        return Ask(text, MessageIcon::Exclamation, detail) ? std::optional(FolderUse::Replace)
                                                           : std::nullopt;
    };
    const std::string deletes = "Its data files are deleted.";
    switch (ContentsOf(path, plan)) {
        case FolderContents::SamePlan:
            if (Ask("The folder holds a characterisation of the same settings.\r\n\r\nGo on with "
                    "what is left of it ?",
                    MessageIcon::Question, "\"No\" asks whether to replace it.")) {
                return FolderUse::Resume;
            }
            return replaced("Replace the characterisation in the folder ?", deletes);
        case FolderContents::OtherPlan:
            return replaced(
                "The folder holds a characterisation of other settings.\r\n\r\nReplace it ?",
                deletes);
        case FolderContents::OtherFiles:
            return replaced("The folder is not empty.\r\n\r\nWrite the results into it ?",
                            "Files of the same names are replaced.");
        case FolderContents::Nothing:
            break;
    }
    return FolderUse::New;
}

void CharacteriseForm::Start() {
    if (running_) {
        return;
    }
    const CharacterisationPlan plan = Plan();
    try {
        const std::string path = Folder();
        const std::optional<FolderUse> use = AskForUse(path, plan);
        if (!use) {
            return;
        }
        const CharacterisationResults beginning = BeginningOf(Shared(), plan);
        if (RefusedByBoard()) {
            return;
        }
        ResultsFolder folder(path, beginning, *use);
        Show(folder.Results(), path);
        Measure(folder);
    } catch (const std::runtime_error& error) {
        ShowFailure(error, "Settings that were finished are in the folder.");
    }
    if (std::exchange(closeRequested_, false)) {
        Form::reject();
    }
}

bool CharacteriseForm::RefusedByBoard() {
    const BoardState board = BoardStateOf(Shared());
    if (!board.good) {
        ShowMessage(
            {.text = board.text, .icon = MessageIcon::Exclamation, .detail = board.meaning});
        return true;
    }
    if (ReadyLineIsStuck(Shared())) {
        ShowMessage({.text = "The data-ready line is stuck low",
                     .icon = MessageIcon::Exclamation,
                     .detail = CheckReadyLineAdvice(Shared().port)});
        return true;
    }
    return false;
}

void CharacteriseForm::UseRunningControls(bool running) {
    running_ = running;
    ui_->StopButton->setEnabled(running);
    if (running) {
        ui_->StopButton->setFocus();
    }
    for (QWidget* const control :
         {static_cast<QWidget*>(ui_->SettingsFrame), static_cast<QWidget*>(ui_->FolderText),
          static_cast<QWidget*>(ui_->BrowseButton), static_cast<QWidget*>(ui_->OpenButton),
          static_cast<QWidget*>(ui_->StartButton)}) {
        control->setEnabled(!running);
    }
    ui_->ReportButton->setEnabled(!running && results_.has_value());
    if (!running) {
        ui_->StartButton->setFocus();
    }
}

void CharacteriseForm::Measure(ResultsFolder& folder) {
    if (folder.Remaining().empty()) {
        ui_->StateLabel->setText(tr("All settings have been measured"));
        return;
    }
    std::vector<RegisterMismatch> mismatches;
    CharacterisationEnd end{};
    {
        stopRequested_ = false;
        closeRequested_ = false;
        UseRunningControls(true);
        const auto ended = qScopeGuard([this] {
            UseRunningControls(false);
            ShowTables();
        });
        end = RunSweep(folder, mismatches);
    }
    WriteReport(folder.Results(), folder.Path());
    ReportEnd(end, mismatches);
}

CharacterisationEnd CharacteriseForm::RunSweep(ResultsFolder& folder,
                                               std::vector<RegisterMismatch>& notRestored) {
    const std::size_t settings = folder.Remaining().size();
    std::size_t finished = 0;
    sinceStart_.start();
    sinceProgress_.start();
    ShowProgress({}, finished, settings);
    return MeasureRemaining(Shared(), folder,
                            {.starting =
                                 [&](const CharacterisedSetting& setting) {
                                     present_ = setting;
                                     RevealPresent();
                                     ShowProgress({}, finished, settings);
                                 },
                             .afterEach =
                                 [&](const SweepProgress& now) {
                                     if (sinceProgress_.elapsed() >= drawingMilliseconds) {
                                         ShowProgress(now, finished, settings);
                                         sinceProgress_.restart();
                                     }
                                 },
                             .finished =
                                 [&](const CharacterisedBlock&) {
                                     ++finished;
                                     Show(folder.Results(), folder.Path());
                                 },
                             .stopRequested =
                                 [this] {
                                     QCoreApplication::processEvents();
                                     return stopRequested_;
                                 },
                             .restored =
                                 [&](const std::vector<RegisterMismatch>& mismatches) {
                                     for (const RegisterMismatch& mismatch : mismatches) {
                                         notRestored.push_back(mismatch);
                                     }
                                 }});
}

/// The user may look at another table while the settings of one polarity are measured.
void CharacteriseForm::RevealPresent() {
    QTableWidgetItem* const item = ItemOf(present_);
    if (item == nullptr) {
        return;
    }
    if (item->row() == 0 && item->column() == 0) {
        ui_->TablesTab->setCurrentWidget(item->tableWidget()->parentWidget());
    }
    item->tableWidget()->scrollToItem(item);
}

/// A setting that begins keeps the bar where it is.
void CharacteriseForm::ShowProgress(const SweepProgress& now, std::size_t finished,
                                    std::size_t settings) {
    constexpr int percent = 100;
    QProgressBar* const bar = ui_->SweepProgressBar;
    QString text =
        tr("%1 of %2")
            .arg(finished)
            .arg(QString::fromStdString(CountText(static_cast<std::int64_t>(settings), "setting")));
    const std::string left =
        TimeLeftText(now.part, std::chrono::milliseconds(sinceStart_.elapsed()));
    if (!left.empty()) {
        text += QStringLiteral(", ") + QString::fromStdString(left);
    }
    if (now.part > 0 || finished == 0) {
        bar->setFormat(text);
        bar->setValue(static_cast<int>(now.part * bar->maximum()));
    }
    const CharacterisationPlan& plan = results_->plan;
    ui_->StateLabel->setText(tr("%1: %2 of %3 codes")
                                 .arg(QString::fromStdString(SettingText(plan.converter, present_)))
                                 .arg(now.codes)
                                 .arg(plan.count));
    if (QTableWidgetItem* const item = ItemOf(present_)) {
        item->setText(QStringLiteral("%1 %").arg(now.codes * percent / plan.count));
    }
}

void CharacteriseForm::ReportEnd(CharacterisationEnd end,
                                 const std::vector<RegisterMismatch>& notRestored) {
    const auto failed =
        std::count_if(results_->rows.begin(), results_->rows.end(),
                      [](const CharacterisationRow& row) { return !row.failure.empty(); });
    QString text = end == CharacterisationEnd::Complete ? tr("Complete")
                   : end == CharacterisationEnd::Stopped
                       ? tr("Stopped; \"Start\" with the same folder goes on with what is left")
                       : tr("The board does not answer any more");
    if (failed > 0) {
        text += tr("; %1 failed").arg(QString::fromStdString(CountText(failed, "setting")));
    }
    QProgressBar* const bar = ui_->SweepProgressBar;
    const auto all = SettingsOf(results_->plan).size();
    bar->setFormat(tr("%1 of %2 settings").arg(results_->rows.size()).arg(all));
    bar->setValue(static_cast<int>(static_cast<double>(results_->rows.size()) /
                                   static_cast<double>(all) * bar->maximum()));
    for (const PolarityTable& table : tables_) {
        table.widget->horizontalScrollBar()->setValue(0);
    }
    const std::string registers = Joined(RestoredLines(notRestored));
    const QString summary =
        notRestored.empty() ? QString::fromStdString(registers)
                            : tr("%1 not restored")
                                  .arg(QString::fromStdString(CountText(
                                      static_cast<std::int64_t>(notRestored.size()), "register")));
    ui_->StateLabel->setText(text + QStringLiteral(". ") + summary + QLatin1Char('.'));
    GrowToTexts();
    if (end == CharacterisationEnd::NoBoard) {
        ShowMessage({.text = "The board does not answer any more",
                     .icon = MessageIcon::Exclamation,
                     .detail = "Check the cable and the board's power. \"Start\" with the same "
                               "folder goes on with what is left.\n" +
                               registers});
    } else if (!notRestored.empty()) {
        ShowMessage({.text = "Not all registers could be restored",
                     .icon = MessageIcon::Exclamation,
                     .detail = registers});
    }
}

void CharacteriseForm::Browse() {
    const QString path = AskForFolder(this, windowTitle(), ui_->FolderText->text());
    if (!path.isEmpty()) {
        ui_->FolderText->setText(path);
        ShowTypedFolder();
    }
}

/// Shows what the folder holds already, if that is a characterisation.
void CharacteriseForm::ShowTypedFolder() {
    const std::string path = ui_->FolderText->text().trimmed().toStdString();
    if (running_ || path.empty() || path == resultsFolder_ || !HasResults(path)) {
        return;
    }
    try {
        Show(LoadResults(path), path);
    } catch (const std::runtime_error& error) {
        ui_->StateLabel->setText(QString::fromUtf8(error.what()));
    }
}

void CharacteriseForm::OpenFolder() {
    const QString chosen = AskForFolder(this, windowTitle(), ui_->FolderText->text());
    if (chosen.isEmpty()) {
        return;
    }
    try {
        const CharacterisationResults results = LoadResults(chosen.toStdString());
        Show(results, chosen.toStdString());
        ui_->FolderText->setText(chosen);
        entry_->Show(results.plan);
        State().ReferenceVoltage = results.plan.referenceVoltage;
        reference_->Show();
    } catch (const std::runtime_error& error) {
        ShowFailure(error, "The table stays as it was.");
    }
}

void CharacteriseForm::Show(const CharacterisationResults& results, const std::string& folder) {
    const bool other = !results_ || results_->plan != results.plan;
    results_ = results;
    resultsFolder_ = folder;
    ui_->ResultsLabel->setText(QString::fromStdString(SummaryOf(results)));
    ui_->ReportButton->setEnabled(!running_);
    if (other) {
        const std::vector<Polarity>& polarities = results.plan.polarities;
        for (std::size_t i = 0; i < tables_.size(); ++i) {
            ui_->TablesTab->setTabVisible(static_cast<int>(i),
                                          std::find(polarities.begin(), polarities.end(),
                                                    tables_[i].polarity) != polarities.end());
        }
    }
    ShowTables();
}

void CharacteriseForm::ShowTables() {
    if (!results_) {
        return;
    }
    const auto tableOf = ui_->TableBox->currentIndex() == 0 ? RmsTable : ResolutionTable;
    for (const PolarityTable& table : tables_) {
        ShowTable(*table.widget, tableOf(*results_, table.polarity), BitsRangeOf(*results_));
    }
}

QTableWidgetItem* CharacteriseForm::ItemOf(const CharacterisedSetting& setting) const {
    for (const PolarityTable& table : tables_) {
        if (table.polarity == setting.polarity) {
            return table.widget->item(PlaceOf(results_->plan.filterWords, setting.filterWord),
                                      PlaceOf(results_->plan.ranges, setting.range));
        }
    }
    return nullptr;
}

void CharacteriseForm::OpenCell(const PolarityTable& table, int line, int column) {
    if (running_ || !results_ || line < 0 || column < 0) {
        return;
    }
    const CharacterisationPlan& plan = results_->plan;
    const CharacterisationRow* const row =
        results_->RowAt({table.polarity, plan.filterWords.at(static_cast<std::size_t>(line)),
                         plan.ranges.at(static_cast<std::size_t>(column))});
    if (row == nullptr) {
        return;
    }
    if (!row->failure.empty()) {
        ShowMessage({.text = SettingText(plan.converter, row->setting) + " failed",
                     .icon = MessageIcon::Exclamation,
                     .detail = row->failure});
    } else if (!RefusedByCount(Shared().messages, static_cast<std::int32_t>(row->count))) {
        OpenBlock(*row);
    }
}

void CharacteriseForm::OpenBlock(const CharacterisationRow& row) {
    const Converter converter = results_->plan.converter;
    const std::string path = PathIn(resultsFolder_, DataFileName(converter, row.setting));
    const std::vector<std::int32_t> codes = LoadCodes(path, Notation::Decimal).codes;
    std::vector<double> values = ToDoubles(codes);
    const CodeBlock block = State().BlockOf(converter);
    if (block.count > 0 && !SameCodes(block.Codes(), values) &&
        !Ask("The noise form analyses the block of the " + std::string(TraitsOf(converter).name) +
                 " ADC.\r\n\r\nReplace the block by this setting's codes ?",
             MessageIcon::Exclamation,
             "The present " + CountText(block.count, "code") +
                 " are lost unless a file has them.")) {
        return;
    }
    block.codes = std::move(values);
    block.count = static_cast<std::int16_t>(codes.size());
    State().ConditionsOf(converter) = LoadConditions(path, converter, codes).conditions;
    if (converter == Converter::Main) {
        OpenForm<MainNoiseForm>();
    } else {
        OpenForm<AuxNoiseForm>();
    }
}

void CharacteriseForm::SaveReport() {
    const std::vector<FileKind> kinds{{tr("HTML Page (*.html)"), QStringLiteral("html")},
                                      PdfFile()};
    const ChosenFile file = AskForFile(
        this, QDir(QString::fromStdString(resultsFolder_)).filePath(QStringLiteral("report")),
        kinds);
    if (file.path.isEmpty()) {
        return;
    }
    try {
        if (file.SuffixAmong(kinds) == PdfFile().suffix) {
            const QByteArray pdf = ReportPdf(*results_, resultsFolder_);
            ReplaceFile(file.NativePath(), {pdf.constData(), static_cast<std::size_t>(pdf.size())});
        } else {
            ReplaceFile(file.NativePath(), ReportHtml(*results_, resultsFolder_));
        }
        ui_->StateLabel->setText(tr("Saved %1").arg(QString::fromStdString(file.NativePath())));
    } catch (const std::runtime_error& error) {
        ShowFailure(error, "No report was saved.");
    }
}

}  // namespace vx3260

#include "moc_CharacteriseForm.cpp"
