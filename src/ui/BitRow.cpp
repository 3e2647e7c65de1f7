// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/BitRow.h"

#include <QEvent>
#include <QGridLayout>
#include <algorithm>
#include <utility>

#include "ui/Fonts.h"

namespace vx3260 {
namespace {

/// With the palette's colours, which a style sheet keeps as they were when it was set.
QString CellStyle(bool set, const QPalette& palette) {
    const QString style = set ? QStringLiteral(
                                    "QLabel { border: 1px solid %1; border-radius: 3px;"
                                    " padding: 1px; background: %1; color: %2;"
                                    " font-weight: bold; }")
                              : QStringLiteral(
                                    "QLabel { border: 1px solid %1; border-radius: 3px;"
                                    " padding: 1px; color: %2; }");
    return style.arg(palette.color(set ? QPalette::Highlight : QPalette::Mid).name(),
                     palette.color(set ? QPalette::HighlightedText : QPalette::WindowText).name());
}

constexpr int headingRow = 0;
constexpr int cellRow = 1;
constexpr int bitsInGroup = 4;

// Pixels.
constexpr int cellFrame = 12;
constexpr int groupGap = 10;
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
    StyleCells();
}

/// Cells are wide enough for a digit and its frame at any size of the font.
void BitRow::StyleCells() {
    const QString set = CellStyle(true, palette());
    const QString clear = CellStyle(false, palette());
    for (QLabel* const cell : cells_) {
        cell->setFont(font());
        UseFixedFont(cell);
        cell->setStyleSheet(cell->text() == QLatin1String("1") ? set : clear);
        cell->setMinimumWidth(std::max(
            minCellWidth_, cell->fontMetrics().horizontalAdvance(QLatin1Char('0')) + cellFrame));
    }
}

void BitRow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        StyleCells();
    }
}

void BitRow::SetMinCellWidth(int width) {
    minCellWidth_ = width;
    StyleCells();
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

QLabel* BitRow::AddCell(int column, const QString& name) {
    QLabel* const cell = LabelAt(cellRow, column);
    return cell == nullptr ? AddLabel(cellRow, column, name, QStringLiteral("0")) : cell;
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
        cells_[i]->setToolTip(name);
        cells_[i]->setAccessibleName(name + QStringLiteral(": ") + level);
    }
    StyleCells();
}

}  // namespace vx3260

#include "moc_BitRow.cpp"
