// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/ReadingForm.h"

#include <algorithm>

#include "acquisition/Reading.h"
#include "app/MessageTexts.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "ui/EntryError.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"

namespace vx3260 {
namespace {

/// A delay is limited as if it were counted in loop turns of a 32-bit counter; the wait itself is
/// real time. A delay above 107374 ms is therefore an overflow; intentional.
constexpr std::int32_t turnsPerMillisecond = 20000;

constexpr char delayAdvice[] =
    "Delay Between Reads: a whole number of milliseconds from 0 to 107374.";

/// Milliseconds. Throws EntryError if the text is not a number.
std::int32_t DelayIn(QLineEdit* edit) {
    return Entered(edit, delayAdvice, TextToInt32);
}

/// Throws EntryError for a delay that is too large.
void CheckDelay(QLineEdit* edit, std::int32_t milliseconds) {
    Entered(edit, delayAdvice,
            [=](const std::string&) { return Product(milliseconds, turnsPerMillisecond); });
}

}  // namespace

ReadingForm::ReadingForm(Services& services, std::vector<Converter> converters, QWidget* parent)
    : Form(services, parent),
      converters_(std::move(converters)),
      reader_(services.port, services.state.PortAddress, converters_.front()) {}

void ReadingForm::Load(const Controls& controls, const std::vector<StripChart*>& charts) {
    controls_ = controls;
    loop_ = new ReadingLoop(controls.prompt, controls.stop, controls.keyTarget, this);
    // Composed input is a key press too, and must stop the loop instead of filling this line edit.
    controls.keyTarget->setAttribute(Qt::WA_InputMethodEnabled, false);
    UseHeadingFont(controls.heading);
    ShowBoardLabel(controls.boardLabel);
    reference_ = new PositiveEntry(controls.reference, State().ReferenceVoltage, "#.00",
                                   tr("Enter a voltage of 0.01 V or more. %1 V stays in use."));
    SelectTextOnFocus(controls.delay);
    SelectTextOnFocus(controls.reference);
    On(controls.display, &QPushButton::clicked, &ReadingForm::ReadForDisplay);
    On(controls.delay, &QLineEdit::returnPressed, &ReadingForm::ReadForDisplay);
    On(controls.back, &QPushButton::clicked, &ReadingForm::reject);

    reader_.ReadControls();
    SetUpCharts(charts);
}

void ReadingForm::SetUpCharts(const std::vector<StripChart*>& charts) {
    charts_ = charts;
    for (std::size_t i = 0; i < charts_.size(); ++i) {
        const std::string_view name = TraitsOf(converters_.at(i)).name;
        charts_[i]->setAccessibleName(tr("%1 ADC Chart").arg(QString::fromUtf8(name)));
    }
    UseConditions();
    On(controls_.reference, &QLineEdit::textChanged, &ReadingForm::UseConditions);
    controls_.chartControls->Control(charts_);
    controls_.chartFrame->hide();
    connect(controls_.chartControls, &ChartControls::ShownChanged, this,
            [this](bool shown) { ShowPart(controls_.chartFrame, shown); });
}

void ReadingForm::UseConditions() {
    for (std::size_t i = 0; i < charts_.size(); ++i) {
        charts_[i]->SetConditions(Conditions(converters_.at(i)));
    }
}

void ReadingForm::AddToCharts(std::initializer_list<std::int32_t> codes) {
    const std::chrono::nanoseconds time = Shared().port.Now();
    auto chart = charts_.begin();
    for (const std::int32_t code : codes) {
        (*chart++)->Add(time, code);
    }
}

void ReadingForm::PrepareReading() {
    closeRequested_ = false;
    for (StripChart* chart : charts_) {
        chart->StartReading();
    }
}

void ReadingForm::reject() {
    if (!loop_->Running()) {
        Form::reject();
        return;
    }
    closeRequested_ = true;
    loop_->Stop();
}

ConversionConditions ReadingForm::Conditions(Converter converter) {
    return ConditionsOf(converter, State().ReferenceVoltage, reader_.Control(converter));
}

void ReadingForm::ReadForDisplay() {
    if (loop_->Running()) {
        return;
    }
    const std::int32_t delay = DelayIn(controls_.delay);
    if (RefusedAsDisabled()) {
        return;
    }
    CheckDelay(controls_.delay, delay);
    PrepareReading();
    AfterReading(loop_->Run([this, delay](const ReadingHooks& hooks) {
        const auto show = [this, delay](std::int32_t code) {
            ShowCode(code);
            loop_->Wait(delay);
        };
        return StreamCodes([this] { return ReadNext(); }, show, hooks);
    }));
}

bool ReadingForm::RefusedAsDisabled() {
    const auto disabled =
        std::find_if_not(converters_.begin(), converters_.end(),
                         [this](Converter converter) { return reader_.Enabled(converter); });
    if (disabled == converters_.end()) {
        return false;
    }
    ApplyReferenceVoltage();
    ShowMessage(
        {.text = MessageTexts::ConverterDisabled(*disabled), .icon = MessageIcon::Exclamation});
    return true;
}

void ReadingForm::AfterReading(ReadingEnd end) {
    if (end == ReadingEnd::TimedOut) {
        ShowMessage({.text = std::string(MessageTexts::ReadingTimedOut),
                     .detail = MessageTexts::TimeoutDetail(Shared().port)});
    }
    if (closeRequested_) {
        Form::reject();
    }
}

void ShowAtOnce(QLineEdit* edit, const std::string& text) {
    edit->setText(QString::fromStdString(text));
    edit->repaint();
}

}  // namespace vx3260

#include "moc_ReadingForm.cpp"
