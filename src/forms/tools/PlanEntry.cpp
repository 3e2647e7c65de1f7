// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/PlanEntry.h"

#include <QRegularExpression>
#include <algorithm>
#include <stdexcept>

#include "analysis/NoiseAnalysis.h"
#include "characterisation/Sweep.h"
#include "files/CodeText.h"
#include "link/FilterRate.h"
#include "link/RegisterLookup.h"
#include "numbers/NumberText.h"
#include "numbers/WholeNumber.h"
#include "ui/EntryError.h"
#include "ui/EntryMark.h"
#include "ui/KeyPresses.h"

namespace vx3260 {
namespace {

constexpr char wordsAdvice[] =
    "Filter Words: whole numbers from 13 to 255 with commas between them, such as 13, 69, 255. "
    "13 is 105 Hz, 255 is 5.35 Hz.";
constexpr char countAdvice[] = "Codes: a whole number from 10 to 32767.";
constexpr char settleAdvice[] = "Dropped First: a whole number from 0 to 10000.";

/// The places of the polarities in their list.
enum PolarityChoice { BipolarOnly, UnipolarOnly, BothPolarities };

std::int32_t WholeNumberIn(const QString& text, std::int64_t min, std::int64_t max) {
    const auto number = DecimalNumber(text.trimmed().toStdString());
    if (!number) {
        throw TypeMismatchError();
    }
    if (*number < min || *number > max) {
        throw OverflowError();
    }
    return static_cast<std::int32_t>(*number);
}

std::int32_t NumberOf(QLineEdit* edit, const char* advice, std::int64_t min, std::int64_t max) {
    return Entered(edit, advice, [=](const std::string& text) {
        return WholeNumberIn(QString::fromStdString(text), min, max);
    });
}

std::size_t IndexOf(Converter converter) {
    return converter == Converter::Main ? 0 : 1;
}

QString CaptionOf(const RegisterMap::FieldValue& value) {
    return QString::fromUtf8(value.name).toUpper();
}

}  // namespace

std::vector<std::int32_t> FilterWordsIn(const std::string& text) {
    static const QRegularExpression separators(QStringLiteral("[,;\\s]+"));
    std::vector<std::int32_t> words;
    for (const QString& word : QString::fromStdString(text).split(separators, Qt::SkipEmptyParts)) {
        AddOnce(words, WholeNumberIn(word, MinFilterWord, MaxFilterWord));
    }
    if (words.empty()) {
        throw TypeMismatchError();
    }
    return words;
}

PlanEntry::PlanEntry(const PlanControls& controls, const std::array<std::int32_t, 2>& present,
                     QObject* parent)
    : QObject(parent), controls_(controls), present_(present) {
    ShowConverter();
    for (QLineEdit* const edit : {controls.words, controls.count, controls.settle}) {
        SelectTextOnFocus(edit);
        connect(edit, &QLineEdit::textChanged, this, &PlanEntry::Changed);
    }
    connect(controls.main, &QAbstractButton::toggled, this, &PlanEntry::ShowConverter);
    connect(controls.allRanges, &QAbstractButton::clicked, this, [this] { CheckRanges(true); });
    connect(controls.noRange, &QAbstractButton::clicked, this, [this] { CheckRanges(false); });
    connect(controls.ranges, &QListWidget::itemChanged, this, &PlanEntry::Changed);
    connect(controls.polarity, &QComboBox::currentIndexChanged, this, &PlanEntry::Changed);
    connect(controls.calibrate, &QAbstractButton::toggled, this, &PlanEntry::Changed);
}

Converter PlanEntry::ChosenConverter() const {
    return controls_.main->isChecked() ? Converter::Main : Converter::Aux;
}

void PlanEntry::ShowConverter() {
    const Converter converter = ChosenConverter();
    controls_.ranges->clear();
    for (const RegisterMap::FieldValue& value : ScaleField(converter).values) {
        auto* const item =
            new QListWidgetItem(QString::fromStdString(RangeName(converter, value.code)));
        item->setData(Qt::UserRole, value.code);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Checked);
        controls_.ranges->addItem(item);
    }
    controls_.ranges->setCurrentRow(0);
    controls_.channel->clear();
    for (const RegisterMap::FieldValue& value : ChannelField(converter).values) {
        controls_.channel->addItem(CaptionOf(value), value.code);
    }
    controls_.channel->setCurrentIndex(
        std::max(0, controls_.channel->findData(present_.at(IndexOf(converter)))));
    emit Changed();
}

void PlanEntry::CheckRanges(bool checked) {
    for (int row = 0; row < controls_.ranges->count(); ++row) {
        controls_.ranges->item(row)->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
    }
}

std::vector<std::int32_t> PlanEntry::ChosenRanges() const {
    std::vector<std::int32_t> ranges;
    for (int row = 0; row < controls_.ranges->count(); ++row) {
        const QListWidgetItem& item = *controls_.ranges->item(row);
        if (item.checkState() == Qt::Checked) {
            ranges.push_back(item.data(Qt::UserRole).toInt());
        }
    }
    if (ranges.empty()) {
        throw std::invalid_argument("Choose one range or more");
    }
    return ranges;
}

std::vector<Polarity> PlanEntry::ChosenPolarities() const {
    std::vector<Polarity> polarities;
    if (controls_.polarity->currentIndex() != UnipolarOnly) {
        polarities.push_back(Polarity::Bipolar);
    }
    if (controls_.polarity->currentIndex() != BipolarOnly) {
        polarities.push_back(Polarity::Unipolar);
    }
    return polarities;
}

CharacterisationPlan PlanEntry::Plan() const {
    const auto count =
        NumberOf(controls_.count, countAdvice, static_cast<std::int64_t>(MinCodesForAnalysis),
                 static_cast<std::int64_t>(MaxCodesInBlock));
    return InOrder({.converter = ChosenConverter(),
                    .ranges = ChosenRanges(),
                    .filterWords = Entered(controls_.words, wordsAdvice, FilterWordsIn),
                    .polarities = ChosenPolarities(),
                    .channel = controls_.channel->currentData().toInt(),
                    .count = static_cast<std::int16_t>(count),
                    .settle = NumberOf(controls_.settle, settleAdvice, 0, MaxSettle),
                    .calibrate = controls_.calibrate->isChecked()});
}

void PlanEntry::Show(const CharacterisationPlan& plan) {
    (plan.converter == Converter::Main ? controls_.main : controls_.aux)->setChecked(true);
    for (int row = 0; row < controls_.ranges->count(); ++row) {
        QListWidgetItem& item = *controls_.ranges->item(row);
        const bool chosen = std::find(plan.ranges.begin(), plan.ranges.end(),
                                      item.data(Qt::UserRole).toInt()) != plan.ranges.end();
        item.setCheckState(chosen ? Qt::Checked : Qt::Unchecked);
    }
    QStringList words;
    for (const std::int32_t word : plan.filterWords) {
        words.append(QString::number(word));
    }
    controls_.words->setText(words.join(QStringLiteral(", ")));
    controls_.polarity->setCurrentIndex(plan.polarities.size() > 1 ? BothPolarities
                                        : plan.polarities == std::vector{Polarity::Unipolar}
                                            ? UnipolarOnly
                                            : BipolarOnly);
    controls_.channel->setCurrentIndex(controls_.channel->findData(plan.channel));
    controls_.count->setText(QString::number(plan.count));
    controls_.settle->setText(QString::number(plan.settle));
    controls_.calibrate->setChecked(plan.calibrate);
}

void PlanEntry::Mark() {
    for (QLineEdit* const edit : {controls_.words, controls_.count, controls_.settle}) {
        MarkEntry(edit, {});
    }
    try {
        Plan();
    } catch (const EntryError& error) {
        MarkEntry(error.Edit(), QString::fromStdString(error.Advice()));
    } catch (const std::invalid_argument&) {
        return;
    }
}

}  // namespace vx3260

#include "moc_PlanEntry.cpp"
