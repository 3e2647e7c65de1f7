// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>

#include "characterisation/Chart.h"

namespace vx3260 {

/// Draws a chart into a rectangle of the chart's proportions.
void DrawChart(QPainter& painter, const QRectF& place, const Chart& chart);

}  // namespace vx3260
