// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/BlockReadingForm.h"

#include <utility>

#include "acquisition/ProgressText.h"
#include "acquisition/Reading.h"
#include "analysis/BlockWarnings.h"
#include "analysis/forms/CountRefusal.h"
#include "app/MessageTexts.h"
#include "link/FilterRate.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "ui/EntryError.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"
#include "ui/ValueTexts.h"

namespace vx3260 {
namespace {

/// How often the progress bar is drawn at most.
constexpr qint64 progressMilliseconds = 40;

/// Throws if the text is not a number or not the size of a block.
std::int16_t BlockSizeOf(const std::string& text) {
    const std::int16_t size = TextToInt16(text);
    CheckBlockSize(size);
    return size;
}

}  // namespace

BlockReadingForm::BlockReadingForm(Services& services, Converter converter, QWidget* parent)
    : ReadingForm(services, {converter}, parent), converter_(converter) {}

void BlockReadingForm::Load(const BlockControls& controls) {
    controls_ = controls;
    controls.progress->reset();
    ShowWarnings(controls.warnings, {});
    UseFixedFont(controls.currentCode);
    SelectTextOnFocus(controls.size);
    On(controls.read, &QPushButton::clicked, &BlockReadingForm::ReadForAnalysis);
    On(controls.size, &QLineEdit::returnPressed, &BlockReadingForm::ReadForAnalysis);
    On(controls.analyse, &QPushButton::clicked, &BlockReadingForm::AnalyseBlock);
}

void BlockReadingForm::ReadForAnalysis() {
    if (Loop().Running()) {
        return;
    }
    const std::int16_t size = Entered(
        controls_.size, "Number of Codes to Read: a whole number from 1 to 32767.", BlockSizeOf);
    if (RefusedAsDisabled()) {
        return;
    }
    PrepareReading();
    controls_.progress->setRange(0, size);
    sinceStart_.start();
    sinceProgress_.start();
    ShowProgress(0);
    std::optional<BlockConditions>& conditions = State().ConditionsOf(converter_);
    conditions.reset();
    ConditionsRecorder recorder(Shared(), converter_);
    const ReadingEnd end = Loop().Run([&, this](ReadingHooks hooks) {
        hooks.afterEach = [&, this] { FollowBlock(recorder); };
        return ReadBlock(Reader(), Block(), size, hooks);
    });
    ShowProgress(Block().count);
    if (end != ReadingEnd::TimedOut) {
        BlockRead();
    }
    if (end == ReadingEnd::Stopped) {
        ShowMessage(
            {.text = std::string(MessageTexts::ReadingStopped), .icon = MessageIcon::Exclamation});
    } else {
        ApplyReferenceVoltage();
    }
    conditions = std::move(recorder).End(end, State().ReferenceVoltage);
    ShowWarningsOfBlock();
    AfterReading(end);
}

/// After a time-out its value is among the codes, and the message says more.
void BlockReadingForm::ShowWarningsOfBlock() {
    const BlockConditions& conditions = State().ConditionsOf(converter_).value();
    if (conditions.outcome != ReadingEnd::TimedOut) {
        ShowWarnings(controls_.warnings, TextsOf(WarningsAbout(Block().Codes(), conditions)));
        GrowToTexts();
    }
}

void BlockReadingForm::AnalyseBlock() {
    if (Loop().Running()) {
        return;
    }
    if (!RefusedByCount(Shared().messages, Block().count)) {
        OpenNoiseForm();
    }
}

void BlockReadingForm::PrepareReading() {
    ReadingForm::PrepareReading();
    ShowWarnings(controls_.warnings, {});
    controls_.progress->reset();
    sinceProgress_.invalidate();
}

/// The count is the number of the code that was just read.
void BlockReadingForm::FollowBlock(ConditionsRecorder& recorder) {
    recorder.CodeRead();
    const CodeBlock block = Block();
    AddToCharts({ToInt32(block.codes.at(static_cast<std::size_t>(block.count) - 1))});
}

void BlockReadingForm::FollowProgress() {
    if (sinceProgress_.isValid() && sinceProgress_.elapsed() >= progressMilliseconds) {
        // The count is the number of the code that is read next.
        ShowProgress(Block().count - 1);
        sinceProgress_.restart();
    }
}

/// That of the filter register, where it is known. The simulated board keeps no real time.
std::optional<double> BlockReadingForm::Rate() {
    const std::optional<std::int32_t> word = Shared().port.Registers().ValueOf(RegisterMap::Filter);
    if (!word.value_or(0) || !Shared().boardLabel.empty()) {
        return std::nullopt;
    }
    return UpdateRateOf(*word);
}

void BlockReadingForm::ShowProgress(int done) {
    QProgressBar* const bar = controls_.progress;
    const std::chrono::milliseconds elapsed(sinceStart_.elapsed());
    bar->setFormat(QString::fromStdString(ProgressText(done, bar->maximum(), elapsed, Rate())));
    bar->setValue(done);
}

void BlockReadingForm::ShowCode(std::int32_t code) {
    ShowAtOnce(controls_.currentCode, HexText(code));
    ExplainHex(controls_.currentCode, code);
    AddToCharts({code});
}

}  // namespace vx3260

#include "moc_BlockReadingForm.cpp"
