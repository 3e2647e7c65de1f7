// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/ConversionConditions.h"
#include "analysis/PlotScale.h"
#include "ui/PlotView.h"

/// What the plots on logarithmic axes share.
namespace vx3260 {

/// Ticks in round numbers below, in volts on the left and in LSB on the right.
void SetUpVoltsAndLsb(PlotView* view, const ConversionConditions& conditions);

/// Places on logarithmic axes, above 0.
struct LogExtent {
    AxisRange keys;
    AxisRange values;
};

/// That of a graph. Of an empty one, something around the value.
LogExtent ExtentOf(QCPGraph* graph, double valueWhereEmpty);

/// Shows that extent, which becomes the view's, with a margin.
void ShowExtent(PlotView* view, LogExtent extent);

/// A place of an item in parts of the plot's height, from the top.
void PlaceAcross(QCPItemPosition* position, double y);

}  // namespace vx3260
