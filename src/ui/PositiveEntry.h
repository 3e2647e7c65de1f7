// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QObject>
#include <QString>
#include <string>

namespace vx3260 {

/// Keeps a positive number equal to what is typed in a line edit. A text that is not a positive
/// number is marked and leaves the number unchanged. Lives as long as its line edit.
class PositiveEntry final : public QObject {
    Q_OBJECT

  public:
    /// The number is rounded to what `format` shows; `refusal` says what to enter, with %1 for the
    /// number that stays. `value` must outlive the line edit.
    PositiveEntry(QLineEdit* edit, float& value, std::string format, QString refusal);

    /// Stores what is typed.
    void Apply();

    /// Shows the stored number, unless the present text is marked.
    void Show();

  private:
    QLineEdit* edit_;
    float& value_;
    std::string format_;
    QString refusal_;
};

}  // namespace vx3260
