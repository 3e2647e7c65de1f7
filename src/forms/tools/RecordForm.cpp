// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/RecordForm.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QLocale>
#include <QScopeGuard>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "acquisition/ConditionsRecorder.h"
#include "acquisition/ConverterReader.h"
#include "acquisition/ReadyLine.h"
#include "analysis/WindowTexts.h"
#include "app/BoardState.h"
#include "app/MessageTexts.h"
#include "files/CodeFile.h"
#include "forms/tools/RequestEntry.h"
#include "link/Register.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"
#include "ui/PositiveEntry.h"
#include "ui/SaveDialog.h"
#include "ui/ValueTexts.h"
#include "ui_RecordForm.h"

namespace vx3260 {
namespace {

/// How often progress is shown at most.
constexpr qint64 showingMilliseconds = 100;

/// The oldest event is dropped for one more: the files have those of hours.
constexpr int maxEvents = 1000;

QString FileName(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).fileName();
}

}  // namespace

RecordForm::RecordForm(Services& services, QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::RecordForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->HeadingLabel);
    ShowBoardLabel(ui_->BoardLabel);
    views_ = {
        {Converter::Main, ui_->MainChart, ui_->MainCodeLabel, ui_->MainVoltsLabel, std::nullopt},
        {Converter::Aux, ui_->AuxChart, ui_->AuxCodeLabel, ui_->AuxVoltsLabel, std::nullopt}};
    for (const ConverterView& view : views_) {
        UseFixedFont(view.code);
        UseFixedFont(view.volts);
    }
    entry_ = new RequestEntry({ui_->ConverterBox,
                               {ui_->EveryBox, ui_->EveryNumber, ui_->EveryUnit},
                               {ui_->EndBox, ui_->EndNumber, ui_->EndUnit},
                               {ui_->RotateBox, ui_->RotateNumber, ui_->RotateUnit},
                               ui_->ResetBox},
                              this);
    new PositiveEntry(ui_->RefText, State().ReferenceVoltage, "#.00",
                      tr("Enter a voltage of 0.01 V or more. %1 V stays in use."));
    ConnectControls();
    ShowChosenCharts();
    ui_->ChartFrame->hide();
}

RecordForm::~RecordForm() = default;

void RecordForm::ConnectControls() {
    SelectTextOnFocus(ui_->RefText);
    SelectTextOnFocus(ui_->FileText);
    ui_->ChartRow->Control({ui_->MainChart, ui_->AuxChart});
    connect(ui_->ChartRow, &ChartControls::ShownChanged, this,
            [this](bool shown) { ShowPart(ui_->ChartFrame, shown); });
    On(ui_->ConverterBox, &QComboBox::currentIndexChanged, &RecordForm::ShowChosenCharts);
    On(ui_->BrowseButton, &QPushButton::clicked, &RecordForm::Browse);
    On(ui_->StartButton, &QPushButton::clicked, &RecordForm::Start);
    On(ui_->StopButton, &QPushButton::clicked, &RecordForm::Stop);
    On(ui_->BackButton, &QPushButton::clicked, &RecordForm::reject);
}

void RecordForm::reject() {
    if (!running_) {
        Form::reject();
        return;
    }
    closeRequested_ = true;
    Stop();
}

void RecordForm::Stop() {
    stopRequested_ = true;
    emit StopRequested();
}

RecordForm::ConverterView& RecordForm::ViewOf(Converter converter) {
    return *std::find_if(views_.begin(), views_.end(), [converter](const ConverterView& view) {
        return view.converter == converter;
    });
}

void RecordForm::ShowChosenCharts() {
    const std::vector<Converter> chosen = entry_->Request().converters;
    for (const ConverterView& view : views_) {
        view.chart->setVisible(std::find(chosen.begin(), chosen.end(), view.converter) !=
                               chosen.end());
    }
}

/// A recording that exists may be continued, which is asked when it starts.
void RecordForm::Browse() {
    const std::vector<FileKind> kinds{{tr("CSV File (*.csv)"), QStringLiteral("csv")},
                                      {tr("All Files (*)"), QString()}};
    const ChosenFile file = AskForFile(this, ui_->FileText->text(), kinds, ExistingFile::Accept);
    if (!file.path.isEmpty()) {
        ui_->FileText->setText(QString::fromStdString(file.NativePath()));
    }
}

std::optional<RecordingStart> RecordForm::AskForStart(const RecordingRequest& request) {
    const std::string path = request.Place().FirstPath();
    if (!FileExists(path)) {
        return RecordingStart::New;
    }
    const auto yes = [this](const Message& message) {
        return ShowMessage(message) == MessageAnswer::Yes;
    };
    if (yes({.text =
                 FileName(path).toStdString() + " exists.\r\n\r\nContinue the recording in it ?",
             .icon = MessageIcon::Question,
             .buttons = MessageButtons::YesNo,
             .detail = "\"No\" asks whether to replace it."})) {
        return RecordingStart::Append;
    }
    if (yes({.text = "Replace " + FileName(path).toStdString() + " ?",
             .icon = MessageIcon::Exclamation,
             .buttons = MessageButtons::YesNo,
             .detail =
                 "Its lines are lost, and those of files with higher numbers as the recording "
                 "comes to them."})) {
        return RecordingStart::Replace;
    }
    return std::nullopt;
}

bool RecordForm::RefusedByBoard(const std::vector<Converter>& converters) {
    const auto refuse = [this](const std::string& text, const std::string& detail) {
        ShowMessage({.text = text, .icon = MessageIcon::Exclamation, .detail = detail});
        return true;
    };
    ConverterReader reader(Shared().port, State().PortAddress, converters.front());
    reader.ReadControls();
    const std::int32_t mode = ReadRegister(Shared().port, State().PortAddress, RegisterMap::Mode);
    const BoardState board = BoardStateOf(Shared());
    if (!board.good) {
        return refuse(board.text, board.meaning);
    }
    for (const Converter converter : converters) {
        if (!reader.Enabled(converter)) {
            return refuse(MessageTexts::ConverterDisabled(converter), {});
        }
    }
    if (!RegisterMap::IsContinuousConversion(mode)) {
        return refuse("The VX3260 is not in Continuous Conversion Mode",
                      "Go back and open this form again: the main menu offers to put it there.");
    }
    if (ReadyLineIsStuck(Shared())) {
        return refuse("The data-ready line is stuck low", CheckReadyLineAdvice(Shared().port));
    }
    return false;
}

void RecordForm::Start() {
    if (running_) {
        return;
    }
    RecordingRequest request = entry_->Request();
    request.referenceVoltage = State().ReferenceVoltage;
    request.path = ui_->FileText->text().trimmed().toStdString();
    if (request.path.empty()) {
        ShowMessage({.text = "Enter the name of a file, or choose one with \"Browse...\"",
                     .icon = MessageIcon::Exclamation});
        return;
    }
    const std::optional<RecordingStart> start = AskForStart(request);
    if (!start || RefusedByBoard(request.converters)) {
        return;
    }
    request.start = *start;
    closeRequested_ = false;
    try {
        Record(request);
    } catch (const std::runtime_error& error) {
        ui_->ProgressFrame->setTitle(tr("Not recording"));
        AddEvent(PresentTime(), error.what());
        ShowFailure(error, "Nothing is recorded any more. What was written before stays.");
    }
    if (std::exchange(closeRequested_, false)) {
        Form::reject();
    }
}

void RecordForm::Record(const RecordingRequest& request) {
    RecordingSession session(Shared(), request);
    const std::int64_t cut = session.Begin();
    AddEvent(PresentTime(), "recording into " + session.File().Path());
    if (cut > 0) {
        AddEvent(PresentTime(), "cut off a torn last line of " + CountText(cut, "byte"));
    }
    PrepareViews(session, request.converters);
    UseRunningControls(true);
    const auto ended = qScopeGuard([this] { UseRunningControls(false); });
    const RecordingEnd end = Run(session);
    ShowEnd(session, end == RecordingEnd::Complete ? "complete" : "stopped");
}

void RecordForm::PrepareViews(const RecordingSession& session,
                              const std::vector<Converter>& converters) {
    for (ConverterView& view : views_) {
        view.chart->Clear();
        view.chart->StartReading();
        view.latest.reset();
        view.code->clear();
        view.volts->clear();
    }
    for (const Converter converter : converters) {
        ViewOf(converter).chart->SetConditions(session.Conditions(converter));
    }
}

void RecordForm::UseRunningControls(bool running) {
    running_ = running;
    stopRequested_ = false;
    ui_->StopButton->setEnabled(running);
    if (running) {
        ui_->ProgressFrame->setTitle(tr("Recording"));
        ui_->StopButton->setFocus();
    }
    for (QWidget* const control :
         {static_cast<QWidget*>(ui_->SettingsFrame), static_cast<QWidget*>(ui_->FileText),
          static_cast<QWidget*>(ui_->BrowseButton), static_cast<QWidget*>(ui_->StartButton)}) {
        control->setEnabled(!running);
    }
    if (!running) {
        ui_->StartButton->setFocus();
    }
}

RecordingEnd RecordForm::Run(RecordingSession& session) {
    failing_ = false;
    sinceShown_.start();
    ShowProgress(session);
    return session.Run(
        {.conversion = [this](
                           const RecordingMoment& moment,
                           std::span<const RecordedCode> codes) { ShowConversion(moment, codes); },
         .report = [this](const RecordingMoment& moment,
                          const std::string& text) { AddEvent(moment.utc, text); },
         .newFile =
             [&] {
                 AddEvent(session.Progress().moment.utc, "recording into " + session.File().Path());
             },
         .afterEach =
             [&](const RecordingProgress& now) {
                 const bool changed = std::exchange(failing_, now.failing) != now.failing;
                 if (changed) {
                     ShowState(tr("Recording"));
                 }
                 if (changed || sinceShown_.elapsed() >= showingMilliseconds) {
                     ShowProgress(session);
                     sinceShown_.restart();
                 }
             },
         .wait =
             [this](std::chrono::milliseconds slice) {
                 QEventLoop waiting;
                 connect(this, &RecordForm::StopRequested, &waiting, &QEventLoop::quit);
                 QTimer::singleShot(slice, &waiting, &QEventLoop::quit);
                 waiting.exec();
             },
         .stopRequested =
             [this] {
                 QCoreApplication::processEvents();
                 return stopRequested_;
             }});
}

void RecordForm::ShowConversion(const RecordingMoment& moment,
                                std::span<const RecordedCode> codes) {
    const auto time = std::chrono::duration_cast<CodeWindow::Duration>(
        std::chrono::duration<double>(moment.elapsed));
    for (const RecordedCode& recorded : codes) {
        ConverterView& view = ViewOf(recorded.converter);
        view.chart->Add(time, recorded.code);
        view.latest = recorded.code;
    }
}

void RecordForm::ShowProgress(const RecordingSession& session) {
    const RecordingProgress& now = session.Progress();
    const RecordingFile& file = session.File();
    const auto elapsed = static_cast<std::int64_t>(now.moment.elapsed);
    ui_->ElapsedLabel->setText(QString::fromStdString(DurationText(std::chrono::seconds(elapsed))));
    ui_->LinesLabel->setText(QString::number(file.Lines()));
    ui_->SizeLabel->setText(
        QLocale::c().formattedDataSize(file.Bytes(), 2, QLocale::DataSizeSIFormat));
    ui_->ConversionsLabel->setText(QString::number(now.conversions));
    ui_->MissedLabel->setText(QString::number(now.missed));
    ui_->TimeOutsLabel->setText(QString::number(now.timeOuts));
    ui_->FileNowText->setText(QString::fromStdString(file.Path()));
    for (const ConverterView& view : views_) {
        if (view.latest) {
            ShowDecimal(view.code, *view.latest);
            view.volts->setText(QString::fromStdString(
                SteadyVoltsText(session.Conditions(view.converter), *view.latest)));
        }
    }
}

void RecordForm::ShowState(const QString& state) {
    ui_->ProgressFrame->setTitle(failing_ ? tr("%1, readings fail").arg(state) : state);
    UpdateBoardLabel();
}

void RecordForm::ShowEnd(const RecordingSession& session, const std::string& how) {
    ShowProgress(session);
    ShowState(tr("Recording %1").arg(QString::fromStdString(how)));
    AddEvent(PresentTime(), how + ": " + session.Summary() + ", to " + session.File().Path());
}

void RecordForm::AddEvent(UtcTime time, const std::string& text) {
    QListWidget* const events = ui_->EventsList;
    if (events->count() == maxEvents) {
        delete events->takeItem(0);
    }
    events->addItem(QString::fromStdString(TimeText(time) + "  " + text));
    events->scrollToBottom();
}

}  // namespace vx3260

#include "moc_RecordForm.cpp"
