// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QObject>
#include <QString>
#include <string>

namespace vx3260 {

/// An entry box for a positive number that is in use as soon as it is typed. A text that is none is
/// marked and leaves the number as it was. Lives as long as its box.
class PositiveEntry final : public QObject {
    Q_OBJECT

  public:
    /// The number is stored as `format` lays it out; `refusal` tells what to enter, with %1 for the
    /// number that stays. `value` must outlive the box.
    PositiveEntry(QLineEdit* box, float& value, std::string format, QString refusal);

    /// Stores what is typed.
    void Apply();

    /// Puts the stored number into the box, unless what stands there is marked.
    void Show();

  private:
    QLineEdit* box_;
    float& value_;
    std::string format_;
    QString refusal_;
};

}  // namespace vx3260
