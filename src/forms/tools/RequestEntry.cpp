// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/RequestEntry.h"

#include <algorithm>
#include <cmath>

namespace vx3260 {

struct RequestEntry::Unit {
    const char* name;
    double factor;  ///< seconds, conversions or bytes
};

namespace {

/// The largest numbers that fit their fields.
constexpr double maxNumber = 999999.0;
constexpr double maxCount = 99999999.0;

constexpr int decimals = 2;

}  // namespace

const std::vector<RequestEntry::Unit>& RequestEntry::UnitsOf(Kind kind) {
    static const std::vector<Unit> times{{"s", 1}, {"min", 60}, {"h", 3600}, {"d", 86400}};
    static const std::vector<Unit> counts{{"conversions", 1}};
    static const std::vector<Unit> sizes{{"kB", 1e3}, {"MB", 1e6}, {"GB", 1e9}};
    return kind == Kind::Time ? times : kind == Kind::Count ? counts : sizes;
}

RequestEntry::RequestEntry(const RequestControls& controls, QObject* parent)
    : QObject(parent),
      controls_(controls),
      every_{controls.every, MinRecordingSeconds, {{Kind::Time, 1, 0}}},
      end_{controls.end, MinRecordingSeconds, {{Kind::Time, 12, 2}, {Kind::Count, 1000, 0}}},
      rotate_{controls.rotate, MinRotationSeconds, {{Kind::Time, 1, 2}, {Kind::Size, 100, 1}}} {
    for (const Row* row : {&every_, &end_, &rotate_}) {
        SetUp(*row);
    }
}

void RequestEntry::SetUp(const Row& row) {
    connect(row.controls.choice, &QComboBox::currentIndexChanged, this, [&row] { UseChoice(row); });
    connect(row.controls.unit, &QComboBox::currentIndexChanged, this, [&row] { UseUnit(row); });
    for (QWidget* const control :
         {static_cast<QWidget*>(row.controls.number), static_cast<QWidget*>(row.controls.unit)}) {
        // Nothing moves when they come and go.
        QSizePolicy policy = control->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        control->setSizePolicy(policy);
    }
    // The widest texts that there can be.
    row.controls.number->setDecimals(0);
    row.controls.number->setRange(0, maxCount);
    row.controls.number->setMinimumWidth(row.controls.number->sizeHint().width());
    row.controls.unit->addItem(tr("conversions"));
    row.controls.unit->setMinimumWidth(row.controls.unit->sizeHint().width());
    UseChoice(row);
}

/// Null for the first choice, which needs no number.
const RequestEntry::Choice* RequestEntry::ChoiceOf(const Row& row) {
    const int index = row.controls.choice->currentIndex();
    return index > 0 ? &row.choices.at(static_cast<std::size_t>(index - 1)) : nullptr;
}

void RequestEntry::UseChoice(const Row& row) {
    const Choice* const choice = ChoiceOf(row);
    row.controls.number->setVisible(choice != nullptr);
    row.controls.unit->setVisible(choice != nullptr);
    row.controls.unit->clear();
    if (choice == nullptr) {
        return;
    }
    for (const Unit& unit : UnitsOf(choice->kind)) {
        row.controls.unit->addItem(QString::fromUtf8(unit.name));
    }
    row.controls.unit->setCurrentIndex(choice->unit);
    UseUnit(row);
    row.controls.number->setValue(choice->number);
}

/// The limits are the same in each unit, as far as the field has digits for them.
void RequestEntry::UseUnit(const Row& row) {
    const Choice* const choice = ChoiceOf(row);
    const int index = row.controls.unit->currentIndex();
    if (choice == nullptr || index < 0) {
        return;
    }
    const double factor = UnitsOf(choice->kind).at(static_cast<std::size_t>(index)).factor;
    QDoubleSpinBox& number = *row.controls.number;
    if (choice->kind == Kind::Count) {
        number.setDecimals(0);
        number.setRange(1, maxCount);
        return;
    }
    const bool time = choice->kind == Kind::Time;
    const double step = std::pow(10, -decimals);
    number.setDecimals(decimals);
    number.setRange(std::max(step, (time ? row.minSeconds : MinRotationBytes) / factor),
                    std::min(maxNumber, (time ? MaxRecordingSeconds : MaxRotationBytes) / factor));
}

std::optional<double> RequestEntry::ValueOf(const Row& row, Kind kind) {
    const Choice* const choice = ChoiceOf(row);
    if (choice == nullptr || choice->kind != kind) {
        return std::nullopt;
    }
    const auto unit = static_cast<std::size_t>(row.controls.unit->currentIndex());
    return row.controls.number->value() * UnitsOf(kind).at(unit).factor;
}

RecordingRequest RequestEntry::Request() const {
    static const std::vector<Converter> converters[] = {
        {Converter::Main}, {Converter::Aux}, {Converter::Main, Converter::Aux}};
    RecordingRequest request;
    request.converters = converters[controls_.converter->currentIndex()];
    request.every = ValueOf(every_, Kind::Time);
    request.duration = ValueOf(end_, Kind::Time);
    if (const std::optional<double> count = ValueOf(end_, Kind::Count)) {
        request.count = std::llround(*count);
    }
    request.rotation.seconds = ValueOf(rotate_, Kind::Time);
    if (const std::optional<double> bytes = ValueOf(rotate_, Kind::Size)) {
        request.rotation.bytes = std::llround(*bytes);
    }
    request.resetOnTimeout = controls_.resetOnTimeout->isChecked();
    return request;
}

}  // namespace vx3260

#include "moc_RequestEntry.cpp"
