// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/NoiseTableWidget.h"

#include <QCoreApplication>

#include "ui/TableItems.h"

namespace vx3260 {
namespace {

QString TipOf(const TableCell& cell) {
    const QString open = cell.rank
                             ? QCoreApplication::translate("NoiseTableWidget",
                                                           "Double click or Enter opens the block")
                             : QString();
    return (QString::fromStdString(cell.remarks) + QLatin1Char('\n') + open).trimmed();
}

void ShowCell(QTableWidgetItem& item, const TableCell& cell, const BitsRange& bits,
              const QPalette& palette) {
    item.setText(QString::fromStdString(cell.text + (cell.remarks.empty() ? "" : "*")));
    item.setToolTip(TipOf(cell));
    if (cell.rank) {
        const CellColours colours = ColoursOf(bits.PlaceOf(*cell.rank), palette);
        item.setBackground(colours.background);
        item.setForeground(colours.text);
    } else {
        item.setBackground({});
        item.setForeground({});
    }
}

}  // namespace

CellColours ColoursOf(double place, const QPalette& palette) {
    constexpr double greenHue = 130.0 / 360;
    constexpr double saturation = 0.65;
    constexpr double light = 0.86;
    constexpr double dark = 0.2;
    constexpr double middle = 0.5;
    const bool isDark = palette.color(QPalette::Base).lightnessF() < middle;
    return {QColor::fromHslF(static_cast<float>(place * greenHue), static_cast<float>(saturation),
                             static_cast<float>(isDark ? dark : light)),
            isDark ? Qt::white : Qt::black};
}

void ShowTable(QTableWidget& widget, const NoiseTable& table, const BitsRange& bits) {
    widget.setRowCount(static_cast<int>(table.lines.size()));
    widget.setColumnCount(static_cast<int>(table.ranges.size()));
    QStringList headings;
    for (const std::string& range : table.ranges) {
        headings.append(QString::fromStdString(range));
    }
    widget.setHorizontalHeaderLabels(headings);
    QStringList rates;
    for (int row = 0; row < widget.rowCount(); ++row) {
        const TableLine& line = table.lines[static_cast<std::size_t>(row)];
        rates.append(
            QCoreApplication::translate("NoiseTableWidget", "%1: %2 Hz")
                .arg(QString::fromStdString(line.word), QString::fromStdString(line.rate)));
        for (int column = 0; column < widget.columnCount(); ++column) {
            QTableWidgetItem& item = TableItemAt(widget, row, column);
            item.setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            ShowCell(item, line.cells[static_cast<std::size_t>(column)], bits, widget.palette());
        }
    }
    widget.setVerticalHeaderLabels(rates);
    widget.resizeColumnsToContents();
}

}  // namespace vx3260
