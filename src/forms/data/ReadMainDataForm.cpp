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

/// The delay was once counted in turns of an empty loop; their number still has to fit 32 bits.
constexpr std::int32_t turnsPerMillisecond = 20000;

/// How often a progress bar is worth drawing.
constexpr qint64 progressMilliseconds = 40;

constexpr std::string_view referenceFormat = "#.00";

std::string TextOf(const QLineEdit* box) {
    return box->text().toStdString();
}

std::int32_t DelayOf(const std::string& text) {
    const std::int32_t milliseconds = TextToInt32(text);
    return milliseconds < 1 ? 0 : Product(milliseconds, turnsPerMillisecond) / turnsPerMillisecond;
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
    sinceProgress_.start();
    const ReadingEnd end = loop_->Run([this, size](const ReadingHooks& hooks) {
        return ReadBlock(reader_, State().BlockOf(converter), size, hooks);
    });
    ShowCount();
    if (end == ReadingEnd::Stopped) {
        Show({.text = "User Interruption of Reading", .icon = MessageIcon::Exclamation});
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
    Show({.text = "Enable Main ADC before reading Data", .icon = MessageIcon::Exclamation});
    return true;
}

void ReadMainDataForm::AfterReading(ReadingEnd end) {
    if (end == ReadingEnd::TimedOut) {
        Show({.text = "Error Reading Data from VX3260",
              .detail = "No result became ready. Check the cable, the board's power, the mode "
                        "register and the printer port. The chip still waits for the clocks of "
                        "this access: a software reset brings the interface back in step."});
    }
    if (closeRequested_) {
        Form::reject();
    }
}

void ReadMainDataForm::AnalyseBlock() {
    if (loop_->Running()) {
        return;
    }
    if (!CountFitsAnalysis(State().BlockOf(converter).count)) {
        Show({.text = std::string(CountRefusal)});
        return;
    }
    OpenForm<MainNoiseForm>();
}

void ReadMainDataForm::FollowProgress() {
    if (sinceProgress_.isValid() && sinceProgress_.elapsed() >= progressMilliseconds) {
        ShowCount();
        sinceProgress_.restart();
    }
}

void ReadMainDataForm::ShowCount() {
    ui_->ReadingProgress->setValue(State().BlockOf(converter).count);
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
    if (ui_->RefText->accessibleDescription().isEmpty()) {
        ui_->RefText->setText(
            QString::fromStdString(FormatNumber(State().ReferenceVoltage, referenceFormat)));
    }
}

}  // namespace vx3260
