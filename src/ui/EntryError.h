// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <stdexcept>
#include <string>

#include "numbers/RuntimeError.h"

namespace vx3260 {

/// A line edit's text cannot be used. Form shows it with the advice.
class EntryError : public std::runtime_error {
  public:
    EntryError(const RuntimeError& cause, QLineEdit* edit, std::string advice)
        : std::runtime_error(cause.what()), edit_(edit), advice_(std::move(advice)) {}

    QLineEdit* Edit() const { return edit_; }
    const std::string& Advice() const { return advice_; }

  private:
    QLineEdit* edit_;
    std::string advice_;
};

/// What `parse` makes of the line edit's text, in UTF-8. Throws EntryError with `advice` where that
/// throws a RuntimeError.
template <typename Parse>
auto Entered(QLineEdit* edit, const std::string& advice, const Parse& parse) {
    try {
        return parse(edit->text().toStdString());
    } catch (const RuntimeError& error) {
        throw EntryError(error, edit, advice);
    }
}

}  // namespace vx3260
