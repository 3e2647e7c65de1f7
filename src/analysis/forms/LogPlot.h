// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/ConversionConditions.h"
#include "ui/PlotView.h"

/// What the plots on logarithmic axes share.
namespace vx3260 {

/// Ticks in round numbers below, in volts on the left and in LSB on the right.
void SetUpVoltsAndLsb(PlotView* view, const ConversionConditions& conditions);

/// The extent of the view becomes that of the graph, which may be empty, and all of it is shown.
/// `lowest` and `highest` are further values to be seen, where they are above 0.
void ShowAllOf(PlotView* view, QCPGraph* graph, double lowest = 0, double highest = 0);

/// A place of an item in parts of the plot's height, from the top.
void PlaceAcross(QCPItemPosition* position, double y);

}  // namespace vx3260
