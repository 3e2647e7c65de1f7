// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/BlockReadingForm.h"

#include "acquisition/Reading.h"
#include "analysis/forms/CountRefusal.h"
#include "app/MessageTexts.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"

namespace vx3260 {
namespace {

/// How often the progress bar is drawn at most.
constexpr qint64 progressMilliseconds = 40;

}  // namespace

BlockReadingForm::BlockReadingForm(Services& services, Converter converter, QWidget* parent)
    : ReadingForm(services, {converter}, parent), converter_(converter) {}

void BlockReadingForm::Load(const BlockControls& controls) {
    controls_ = controls;
    controls.progress->reset();
    UseFixedFont(controls.currentCode);
    On(controls.read, &QPushButton::clicked, &BlockReadingForm::ReadForAnalysis);
    On(controls.size, &QLineEdit::returnPressed, &BlockReadingForm::ReadForAnalysis);
    On(controls.analyse, &QPushButton::clicked, &BlockReadingForm::AnalyseBlock);
}

void BlockReadingForm::ReadForAnalysis() {
    if (Loop().Running()) {
        return;
    }
    const std::int16_t size = TextToInt16(controls_.size->text().toStdString());
    CheckBlockSize(size);
    if (RefusedAsDisabled()) {
        return;
    }
    PrepareReading();
    controls_.progress->setRange(0, size);
    controls_.progress->setValue(0);
    sinceProgress_.start();
    const ReadingEnd end = Loop().Run([this, size](const ReadingHooks& hooks) {
        return ReadBlock(Reader(), Block(), size, hooks);
    });
    controls_.progress->setValue(Block().count);
    if (end != ReadingEnd::TimedOut) {
        BlockRead();
    }
    if (end == ReadingEnd::Stopped) {
        ShowMessage(
            {.text = std::string(MessageTexts::ReadingStopped), .icon = MessageIcon::Exclamation});
    } else {
        ApplyReferenceVoltage();
    }
    AfterReading(end);
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
    controls_.progress->reset();
    sinceProgress_.invalidate();
}

void BlockReadingForm::FollowProgress() {
    if (sinceProgress_.isValid() && sinceProgress_.elapsed() >= progressMilliseconds) {
        // The count is the number of the code that is read next.
        controls_.progress->setValue(Block().count - 1);
        sinceProgress_.restart();
    }
}

void BlockReadingForm::ShowCode(std::int32_t code) {
    ShowAtOnce(controls_.currentCode, HexText(code));
}

}  // namespace vx3260

#include "moc_BlockReadingForm.cpp"
