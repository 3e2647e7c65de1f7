// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableWidget>

namespace vx3260 {

/// The item at a place of a table; where there is none yet, one that can be selected only. Changing
/// the texts of items keeps the table's selection and scroll position.
inline QTableWidgetItem& TableItemAt(QTableWidget& table, int row, int column) {
    if (table.item(row, column) == nullptr) {
        auto* const item = new QTableWidgetItem;
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        table.setItem(row, column, item);
    }
    return *table.item(row, column);
}

}  // namespace vx3260
