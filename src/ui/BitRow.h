// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QString>
#include <cstdint>
#include <vector>

namespace vx3260 {

/// A register's bits as a row of small cells. A set bit is marked by its text, by weight and by a
/// filled cell; each cell tells its bit's number, name and level to a screen reader.
class BitRow {
  public:
    /// `cells` from the most significant bit down to bit 0; `names` likewise, or empty.
    explicit BitRow(std::vector<QLabel*> cells, std::vector<QString> names = {});

    /// Shows "1" in the cells of the bits that are set in `value` and "0" in the others.
    void Show(std::int32_t value);

  private:
    std::vector<QLabel*> cells_;
    std::vector<QString> names_;
};

/// The labels of a form with these names, in their order; cells for a BitRow.
std::vector<QLabel*> LabelsNamed(const QWidget& form, const std::vector<QString>& names);

/// "Label" followed by each number from `first` to `last`, up or down.
std::vector<QString> NumberedLabels(int first, int last);

}  // namespace vx3260
