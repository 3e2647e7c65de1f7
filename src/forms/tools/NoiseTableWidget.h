// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QTableWidget>

#include "characterisation/Tables.h"

namespace vx3260 {

/// Colours of a cell that are readable together.
struct CellColours {
    QColor background;
    QColor text;
};

/// From red to green by the place of a resolution, 0 to 1; dark where the palette's base is.
CellColours ColoursOf(double place, const QPalette& palette);

/// Shows a table: rates down, ranges across, cells shaded by resolution, remarks as tool tips and
/// marked by *.
void ShowTable(QTableWidget& widget, const NoiseTable& table, const BitsRange& bits);

}  // namespace vx3260
