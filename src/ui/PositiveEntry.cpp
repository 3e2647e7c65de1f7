// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PositiveEntry.h"

#include <limits>

#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "numbers/RuntimeError.h"
#include "ui/EntryMark.h"

namespace vx3260 {
namespace {

/// What is stored for a typed text: its number, rounded to what `format` shows. Throws
/// TypeMismatchError if that is not a positive number.
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

PositiveEntry::PositiveEntry(QLineEdit* edit, float& value, std::string format, QString refusal)
    : QObject(edit),
      edit_(edit),
      value_(value),
      format_(std::move(format)),
      refusal_(std::move(refusal)) {
    Show();
    connect(edit, &QLineEdit::textChanged, this, &PositiveEntry::Apply);
    connect(edit, &QLineEdit::editingFinished, this, &PositiveEntry::Show);
}

void PositiveEntry::Apply() {
    try {
        value_ = StoredNumber(edit_->text().toStdString(), format_);
        MarkEntry(edit_, {});
    } catch (const RuntimeError&) {
        MarkEntry(edit_, refusal_.arg(QString::fromStdString(FormatNumber(value_, format_))));
    }
}

void PositiveEntry::Show() {
    if (!IsMarked(edit_)) {
        edit_->setText(QString::fromStdString(FormatNumber(value_, format_)));
        if (edit_->hasFocus()) {
            edit_->selectAll();
        }
    }
}

}  // namespace vx3260

#include "moc_PositiveEntry.cpp"
