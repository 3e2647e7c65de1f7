// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/BitRow.h"

#include <QGridLayout>
#include <utility>

#include "ui/Fonts.h"

namespace vx3260 {
namespace {

constexpr char setCellStyle[] =
    "QLabel { border: 1px solid palette(highlight); border-radius: 3px; padding: 1px;"
    " background: palette(highlight); color: palette(highlighted-text); font-weight: bold; }";
constexpr char clearCellStyle[] =
    "QLabel { border: 1px solid palette(mid); border-radius: 3px; padding: 1px; }";

constexpr int headingRow = 0;
constexpr int cellRow = 1;
constexpr int bitsInGroup = 4;

// Pixels.
constexpr int cellFrame = 14;
constexpr int groupGap = 12;
constexpr int valueGap = 24;
constexpr int horizontalSpacing = 3;
constexpr int verticalSpacing = 2;

/// Each group is followed by a gap.
int ColumnOf(int index) {
    return index + index / bitsInGroup;
}

QGridLayout& GridOf(const QWidget& row) {
    return *qobject_cast<QGridLayout*>(row.layout());
}

}  // namespace

void BitRow::MakeCells(std::vector<QString> names) {
    names_ = std::move(names);
    names_.resize(static_cast<std::size_t>(bitCount_));
    QGridLayout& grid = GridOf(*this);
    grid.setContentsMargins({});
    grid.setHorizontalSpacing(horizontalSpacing);
    grid.setVerticalSpacing(verticalSpacing);
    for (int i = 0; i < bitCount_; ++i) {
        const int column = ColumnOf(i);
        const int number = descending_ ? firstLabel_ - i : firstLabel_ + i;
        const QString heading = AddHeading(column, bitCount_ - 1 - i);
        QString& name = names_[static_cast<std::size_t>(i)];
        name = name.isEmpty() ? heading : name;
        cells_.push_back(AddCell(column, QStringLiteral("Label%1").arg(number)));
        if (i + 1 < bitCount_ && (i + 1) % bitsInGroup == 0) {
            AddGap(column + 1, QSizePolicy::Fixed, groupGap);
        }
    }
    AddGap(ColumnOf(bitCount_ - 1) + 1, QSizePolicy::MinimumExpanding, valueGap);
}

QLabel* BitRow::LabelAt(int row, int column) const {
    const QLayoutItem* const item = GridOf(*this).itemAtPosition(row, column);
    return item == nullptr ? nullptr : qobject_cast<QLabel*>(item->widget());
}

QLabel* BitRow::AddLabel(int row, int column, const QString& name, const QString& text) {
    auto* const label = new QLabel(text, this);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    GridOf(*this).addWidget(label, row, column);
    return label;
}

/// Gives the text of a heading that was there.
QString BitRow::AddHeading(int column, int bit) {
    if (const QLabel* const heading = LabelAt(headingRow, column)) {
        return heading->text();
    }
    const QString number = QString::number(bit);
    AddLabel(headingRow, column, numberName_ + number, number);
    return {};
}

/// Wide enough for a digit and its frame at any size of the font.
QLabel* BitRow::AddCell(int column, const QString& name) {
    QLabel* cell = LabelAt(cellRow, column);
    if (cell == nullptr) {
        cell = AddLabel(cellRow, column, name, QStringLiteral("0"));
    }
    UseFixedFont(cell);
    cell->setMinimumWidth(cell->fontMetrics().horizontalAdvance(QLatin1Char('0')) + cellFrame);
    return cell;
}

void BitRow::AddGap(int column, QSizePolicy::Policy policy, int width) {
    GridOf(*this).addItem(new QSpacerItem(width, 0, policy, QSizePolicy::Minimum), cellRow, column);
}

void BitRow::ShowValue(std::int32_t value) {
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        const auto bit = static_cast<int>(cells_.size() - 1 - i);
        const bool set = ((value >> bit) & 1) != 0;
        const QString level = set ? QStringLiteral("1") : QStringLiteral("0");
        QString name = tr("Bit %1").arg(bit);
        if (!names_[i].isEmpty()) {
            name += QStringLiteral(", ") + names_[i];
        }
        cells_[i]->setText(level);
        cells_[i]->setStyleSheet(QString::fromLatin1(set ? setCellStyle : clearCellStyle));
        cells_[i]->setToolTip(name);
        cells_[i]->setAccessibleName(name + QStringLiteral(": ") + level);
    }
}

}  // namespace vx3260

#include "moc_BitRow.cpp"
