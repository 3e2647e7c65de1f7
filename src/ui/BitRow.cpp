// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/BitRow.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

#include "ui/Fonts.h"

namespace vx3260 {
namespace {

constexpr char setStyle[] =
    "QLabel { border: 1px solid palette(highlight); border-radius: 3px; padding: 1px;"
    " background: palette(highlight); color: palette(highlighted-text); font-weight: bold; }";
constexpr char clearStyle[] =
    "QLabel { border: 1px solid palette(mid); border-radius: 3px; padding: 1px; }";

/// Wide enough for a digit and its frame at any size of the font.
void MakeCell(QLabel* cell) {
    UseFixedFont(cell);
    const int digit = cell->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    cell->setMinimumWidth(digit + 14);
}

}  // namespace

BitRow::BitRow(std::vector<QLabel*> cells, std::vector<QString> names)
    : cells_(std::move(cells)), names_(std::move(names)) {
    names_.resize(cells_.size());
    std::for_each(cells_.begin(), cells_.end(), MakeCell);
}

void BitRow::Show(std::int32_t value) {
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        const auto bit = static_cast<int>(cells_.size() - 1 - i);
        const bool set = ((value >> bit) & 1) != 0;
        const QString level = set ? QStringLiteral("1") : QStringLiteral("0");
        QString name = QCoreApplication::translate("BitRow", "Bit %1").arg(bit);
        if (!names_[i].isEmpty()) {
            name += QStringLiteral(", ") + names_[i];
        }
        cells_[i]->setText(level);
        cells_[i]->setStyleSheet(QString::fromLatin1(set ? setStyle : clearStyle));
        cells_[i]->setToolTip(name);
        cells_[i]->setAccessibleName(name + QStringLiteral(": ") + level);
    }
}

std::vector<QLabel*> LabelsNamed(const QWidget& form, const std::vector<QString>& names) {
    std::vector<QLabel*> labels(names.size());
    std::transform(names.begin(), names.end(), labels.begin(),
                   [&form](const QString& name) { return form.findChild<QLabel*>(name); });
    return labels;
}

std::vector<QString> NumberedLabels(int first, int last) {
    const int step = first <= last ? 1 : -1;
    std::vector<QString> names;
    for (int number = first; number != last + step; number += step) {
        names.push_back(QStringLiteral("Label%1").arg(number));
    }
    return names;
}

}  // namespace vx3260
