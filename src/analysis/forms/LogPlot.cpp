// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/LogPlot.h"

#include <algorithm>

#include "analysis/UnitTexts.h"
#include "ui/PlotTickers.h"

namespace vx3260 {
namespace {

constexpr double margin = 0.04;
constexpr double minKeyRatio = 4;
constexpr double minValueRatio = 10;
constexpr double minDecadesShown = 0.05;

/// Below the largest value: less is rounding.
constexpr double maxRatio = 1e9;

}  // namespace

void SetUpVoltsAndLsb(PlotView* view, const ConversionConditions& conditions) {
    view->xAxis->setTicker(LogTicker(view->xAxis, 1, TickText));
    view->yAxis->setTicker(LogTicker(view->yAxis, 1, VoltsTickText));
    view->yAxis2->setTicker(LogTicker(view->yAxis2, conditions.StepVolts(), TickText));
    view->yAxis2->setVisible(true);
}

LogExtent ExtentOf(QCPGraph* graph, double valueWhereEmpty) {
    if (graph->dataCount() == 0) {
        return {{1, 1}, {valueWhereEmpty, valueWhereEmpty}};
    }
    bool found = false;
    const QCPRange keys = graph->getKeyRange(found);
    const QCPRange values = graph->getValueRange(found);
    return {{keys.lower, keys.upper}, {values.lower, values.upper}};
}

void ShowExtent(PlotView* view, LogExtent extent) {
    extent.values.lower = std::max(extent.values.lower, extent.values.upper / maxRatio);
    const AxisRange keys = WithLogMargin(extent.keys, margin, minKeyRatio);
    const AxisRange values = WithLogMargin(extent.values, margin, minValueRatio);
    view->SetExtent({.keys = {keys.lower, keys.upper},
                     .values = {values.lower, values.upper},
                     .minKeys = minDecadesShown,
                     .minValues = minDecadesShown,
                     .logarithmic = true});
}

void PlaceAcross(QCPItemPosition* position, double y) {
    position->setTypeX(QCPItemPosition::ptPlotCoords);
    position->setTypeY(QCPItemPosition::ptAxisRectRatio);
    position->setCoords(1, y);
}

}  // namespace vx3260
