// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/PositiveEntry.h"

#include <limits>

#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "numbers/RuntimeError.h"
#include "ui/EntryMark.h"

namespace vx3260 {
namespace {

/// What is stored for a typed text: its number as `format` lays it out. Throws TypeMismatchError
/// for a text that is no positive number, or is 0 when stored.
float StoredNumber(const std::string& text, const std::string& format) {
    const double number = TextToDouble(FormatNumber(TextToDouble(text), format));
    if (number <= 0) {
        throw TypeMismatchError();
    }
    if (number > std::numeric_limits<float>::max()) {
        throw OverflowError();
    }
    return static_cast<float>(number);
}

}  // namespace

PositiveEntry::PositiveEntry(QLineEdit* box, float& value, std::string format, QString refusal)
    : QObject(box),
      box_(box),
      value_(value),
      format_(std::move(format)),
      refusal_(std::move(refusal)) {
    Show();
    connect(box, &QLineEdit::textChanged, this, &PositiveEntry::Apply);
    connect(box, &QLineEdit::editingFinished, this, &PositiveEntry::Show);
}

void PositiveEntry::Apply() {
    try {
        value_ = StoredNumber(box_->text().toStdString(), format_);
        MarkEntry(box_, {});
    } catch (const RuntimeError&) {
        MarkEntry(box_, refusal_.arg(QString::fromStdString(FormatNumber(value_, format_))));
    }
}

void PositiveEntry::Show() {
    if (!IsMarked(box_)) {
        box_->setText(QString::fromStdString(FormatNumber(value_, format_)));
    }
}

}  // namespace vx3260
