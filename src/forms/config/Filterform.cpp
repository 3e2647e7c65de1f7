// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/Filterform.h"

#include <algorithm>
#include <limits>

#include "app/MessageTexts.h"
#include "link/FilterRate.h"
#include "link/RegisterLookup.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "numbers/RuntimeError.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"
#include "ui/ValueTexts.h"
#include "ui_Filterform.h"

namespace vx3260 {
namespace {

/// The limits are whole hertz although the message names 5.35 and 105.3, so 5.2 is accepted;
/// intentional.
constexpr std::int16_t minUpdateRate = 5;
constexpr std::int16_t maxUpdateRate = 105;

/// The same rate is shown in three formats, depending on what was entered; intentional.
constexpr std::string_view rateAtLoad = "#.##";
constexpr std::string_view rateOfTypedWord = "00.00";
constexpr std::string_view rateOfTypedRate = "#.##00";

constexpr std::string_view typedRateFormat = "####.##";

QString RateText(std::int32_t filterWord, std::string_view format) {
    return QString::fromStdString(FormatNumber(UpdateRateOf(filterWord), format));
}

QString WordText(std::int32_t filterWord) {
    return QString::fromStdString(HexText(filterWord));
}

bool IsNegative(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    return first != std::string_view::npos && text[first] == '-';
}

/// Whole hertz; a number beyond 16 bits gives the nearest. Throws TypeMismatchError if the text is
/// not a number.
std::int16_t TypedRate(const std::string& text) {
    try {
        const std::string rate = FormatNumber(TextToDouble(text), typedRateFormat);
        return rate == "." ? std::int16_t{0} : TextToInt16(rate);
    } catch (const OverflowError&) {
        using Limits = std::numeric_limits<std::int16_t>;
        return IsNegative(text) ? Limits::min() : Limits::max();
    }
}

}  // namespace

Filterform::Filterform(Services& services, QWidget* parent)
    : Form(services, parent),
      ui_(std::make_unique<Ui::Filterform>()),
      register_(services.port, services.state.PortAddress, RegisterMap::Filter) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->Label9);
    UseValueFont(ui_->Filterlabel);
    ShowBoardLabel(ui_->BoardLabel);
    ui_->Bits->MakeCells();
    SelectTextOnFocus(ui_->TxtFilter);
    SelectTextOnFocus(ui_->TxtUpdate);
    On(ui_->TxtFilter, &QLineEdit::returnPressed, &Filterform::ApplyFilterWord);
    On(ui_->TxtUpdate, &QLineEdit::returnPressed, &Filterform::ApplyUpdateRate);
    On(ui_->Command1, &QPushButton::clicked, &Filterform::reject);

    State().FilterValue = ReadRegister();
    if (State().FilterValue == 0) {
        ShowMessage({.text = std::string(MessageTexts::ErrorReading)});
        ui_->Bits->ShowValue(0);
        return;
    }
    ShowFilterSetting();
    RefreshFilterBits();
}

Filterform::~Filterform() = default;

std::int16_t Filterform::ReadRegister() {
    return static_cast<std::int16_t>(register_.ReadValue());
}

void Filterform::ShowFilterSetting() {
    ui_->TxtFilter->setText(WordText(State().FilterValue));
    ui_->TxtUpdate->setText(RateText(State().FilterValue, rateAtLoad));
}

void Filterform::RefreshFilterBits() {
    State().FilterValue = ReadRegister();
    ui_->Bits->ShowValue(State().FilterValue);
    ShowHex(ui_->Filterlabel, State().FilterValue);
}

void Filterform::ApplyFilterWord() {
    if (ui_->TxtFilter->text().isEmpty()) {
        ui_->TxtFilter->setText(QStringLiteral("0"));
    }
    std::int32_t word = 0;
    try {
        word = HexLiteral(ui_->TxtFilter->text().toStdString());
    } catch (const TypeMismatchError&) {
        Refuse(ui_->TxtFilter, tr("The Filter Word is not a hexadecimal number"));
        return;
    }
    if (word > MaxFilterWord) {
        Refuse(ui_->TxtFilter, QString::fromUtf8(MessageTexts::FilterWordTooLarge));
        return;
    }
    if (word < MinFilterWord) {
        Refuse(ui_->TxtFilter,
               tr("The minimum Filter Word is %1 Hex").arg(WordText(MinFilterWord)));
        return;
    }
    ui_->TxtUpdate->setText(RateText(word, rateOfTypedWord));
    ui_->TxtFilter->setText(WordText(word));
    Program(word, MessageTexts::ErrorProgrammingSmallP);
    ui_->TxtFilter->selectAll();
}

void Filterform::ApplyUpdateRate() {
    std::int16_t rate = 0;
    try {
        rate = TypedRate(ui_->TxtUpdate->text().toStdString());
    } catch (const TypeMismatchError&) {
        Refuse(ui_->TxtUpdate, tr("The Output Update Rate is not a number"));
        return;
    }
    const std::int16_t accepted = std::clamp(rate, minUpdateRate, maxUpdateRate);
    if (accepted != rate) {
        ShowExclamation(MessageTexts::UpdateRateRange);
    }
    const std::int32_t word = FilterWordFor(accepted);
    ui_->TxtFilter->setText(WordText(word));
    ui_->TxtUpdate->setText(RateText(word, rateOfTypedRate));
    Program(word, MessageTexts::ErrorProgramming);
    ui_->TxtUpdate->selectAll();
}

void Filterform::Program(std::int32_t filterWord, std::string_view errorText) {
    register_.WriteValue(filterWord);
    RefreshFilterBits();
    const std::int16_t readBack = ReadRegister();
    if (readBack != filterWord) {
        ShowExclamation(
            errorText, MessageTexts::MismatchDetail(Shared().port,
                                                    RegisterMap::DescriptionOf(RegisterMap::Filter),
                                                    filterWord, readBack));
    }
}

void Filterform::Refuse(QLineEdit* edit, const QString& reason) {
    ShowExclamation(reason.toStdString());
    edit->selectAll();
    edit->setFocus();
}

void Filterform::ShowExclamation(std::string_view text, const std::string& detail) {
    ShowMessage({.text = std::string(text), .icon = MessageIcon::Exclamation, .detail = detail});
}

}  // namespace vx3260

#include "moc_Filterform.cpp"
