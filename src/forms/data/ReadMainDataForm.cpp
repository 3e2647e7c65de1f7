#include "forms/data/ReadMainDataForm.h"

#include <limits>

#include "acquisition/Reading.h"
#include "analysis/MainNoiseForm.h"
#include "analysis/NoiseAnalysis.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "numbers/RuntimeError.h"
#include "ui/EntryMark.h"
#include "ui/Fonts.h"
#include "ui_ReadMainDataForm.h"

namespace vx3260 {
namespace {

constexpr Converter converter = Converter::Main;

/// By design a delay is a number of turns, which has to fit 32 bits; the wait itself is real time.
constexpr std::int32_t turnsPerMillisecond = 20000;

/// How often a progress bar is worth drawing.
constexpr qint64 progressMilliseconds = 40;

constexpr std::string_view referenceFormat = "#.00";

std::string TextOf(const QLineEdit* box) {
    return box->text().toStdString();
}

/// Milliseconds. Throws where the text is no number, or too large a one.
std::int32_t DelayOf(const std::string& text) {
    const std::int32_t milliseconds = TextToInt32(text);
    Product(milliseconds, turnsPerMillisecond);
    return milliseconds;
}

/// What is stored for a typed reference voltage: the number with two decimals. Throws
/// TypeMismatchError for a text that is no positive number, or is 0 when stored.
float StoredReference(const std::string& text) {
    const double volts = TextToDouble(FormatNumber(TextToDouble(text), referenceFormat));
    if (volts <= 0) {
        throw TypeMismatchError();
    }
    if (volts > std::numeric_limits<float>::max()) {
        throw OverflowError();
    }
    return static_cast<float>(volts);
}

}  // namespace

ReadMainDataForm::ReadMainDataForm(Services& services, QWidget* parent)
    : Form(services, parent),
      ui_(std::make_unique<Ui::ReadMainDataForm>()),
      reader_(services.port, services.state.PortAddress, converter) {
    ui_->setupUi(this);
    loop_ = new ReadingLoop(ui_->ReadingLabel, ui_->Text1, this);
    // What an input method composes is a key too, and none for this box to take.
    ui_->Text1->setAttribute(Qt::WA_InputMethodEnabled, false);
    ui_->ReadingProgress->reset();
    UseFixedFont(ui_->CurrentCodeText);
    ShowBadge(ui_->BadgeLabel);
    ShowReferenceVoltage();

    On(ui_->Command1, &QPushButton::clicked, &ReadMainDataForm::ReadForAnalysis);
    On(ui_->NumCodesText, &QLineEdit::returnPressed, &ReadMainDataForm::ReadForAnalysis);
    On(ui_->Command2, &QPushButton::clicked, &ReadMainDataForm::ReadForDisplay);
    On(ui_->DelayText, &QLineEdit::returnPressed, &ReadMainDataForm::ReadForDisplay);
    On(ui_->Command3, &QPushButton::clicked, &ReadMainDataForm::AnalyseBlock);
    On(ui_->Command4, &QPushButton::clicked, &ReadMainDataForm::reject);
    On(ui_->RefText, &QLineEdit::textChanged, &ReadMainDataForm::TakeReferenceVoltage);
    On(ui_->RefText, &QLineEdit::editingFinished, &ReadMainDataForm::ShowReferenceVoltage);
    On(loop_, &ReadingLoop::NextRead, &ReadMainDataForm::FollowProgress);

    reader_.ReadEnables();
}

ReadMainDataForm::~ReadMainDataForm() = default;

void ReadMainDataForm::reject() {
    if (!loop_->Running()) {
        Form::reject();
        return;
    }
    closeRequested_ = true;
    loop_->Stop();
}

void ReadMainDataForm::ReadForAnalysis() {
    if (loop_->Running()) {
        return;
    }
    const std::int16_t size = TextToInt16(TextOf(ui_->NumCodesText));
    CheckBlockSize(size);
    if (RefusedAsDisabled()) {
        return;
    }
    ui_->ReadingProgress->setRange(0, size);
    ui_->ReadingProgress->setValue(0);
    sinceProgress_.start();
    const ReadingEnd end = loop_->Run([this, size](const ReadingHooks& hooks) {
        return ReadBlock(reader_, State().BlockOf(converter), size, hooks);
    });
    ui_->ReadingProgress->setValue(State().BlockOf(converter).count);
    if (end == ReadingEnd::Stopped) {
        Show({.text = std::string(StoppedText), .icon = MessageIcon::Exclamation});
    } else {
        TakeReferenceVoltage();
    }
    AfterReading(end);
}

void ReadMainDataForm::ReadForDisplay() {
    if (loop_->Running()) {
        return;
    }
    const std::int32_t delay = DelayOf(TextOf(ui_->DelayText));
    if (RefusedAsDisabled()) {
        return;
    }
    ui_->ReadingProgress->reset();
    sinceProgress_.invalidate();
    AfterReading(loop_->Run([this, delay](const ReadingHooks& hooks) {
        const auto show = [this, delay](std::int32_t code) {
            ShowCode(code);
            loop_->Wait(delay);
        };
        return StreamCodes(reader_, show, hooks);
    }));
}

bool ReadMainDataForm::RefusedAsDisabled() {
    if (reader_.Enabled()) {
        return false;
    }
    TakeReferenceVoltage();
    Show({.text = DisabledText(converter), .icon = MessageIcon::Exclamation});
    return true;
}

void ReadMainDataForm::AfterReading(ReadingEnd end) {
    if (end == ReadingEnd::TimedOut) {
        Show({.text = std::string(TimeoutText), .detail = std::string(TimeoutDetail)});
    }
    if (closeRequested_) {
        Form::reject();
    }
}

void ReadMainDataForm::AnalyseBlock() {
    if (loop_->Running()) {
        return;
    }
    if (!RefusedByCount(Shared().messages, State().BlockOf(converter).count)) {
        OpenForm<MainNoiseForm>();
    }
}

void ReadMainDataForm::FollowProgress() {
    if (sinceProgress_.isValid() && sinceProgress_.elapsed() >= progressMilliseconds) {
        // The count is the number of the code that is read next.
        ui_->ReadingProgress->setValue(State().BlockOf(converter).count - 1);
        sinceProgress_.restart();
    }
}

void ReadMainDataForm::ShowCode(std::int32_t code) {
    ui_->CurrentCodeText->setText(QString::fromStdString(HexText(code)));
    ui_->CurrentCodeText->repaint();
}

void ReadMainDataForm::TakeReferenceVoltage() {
    try {
        State().ReferenceVoltage = StoredReference(TextOf(ui_->RefText));
        MarkEntry(ui_->RefText, {});
    } catch (const RuntimeError&) {
        const std::string kept = FormatNumber(State().ReferenceVoltage, referenceFormat);
        MarkEntry(ui_->RefText, tr("Enter a voltage of 0.01 V or more. %1 V stays in use.")
                                    .arg(QString::fromStdString(kept)));
    }
}

void ReadMainDataForm::ShowReferenceVoltage() {
    if (!IsMarked(ui_->RefText)) {
        ui_->RefText->setText(
            QString::fromStdString(FormatNumber(State().ReferenceVoltage, referenceFormat)));
    }
}

}  // namespace vx3260
