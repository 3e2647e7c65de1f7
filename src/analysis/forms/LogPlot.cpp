// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/LogPlot.h"

#include <algorithm>

#include "analysis/PlotScale.h"
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

void ShowAllOf(PlotView* view, QCPGraph* graph, double lowest, double highest) {
    bool found = false;
    AxisRange keys{1, 1};
    AxisRange values{1, 1};
    if (graph->dataCount() > 0) {
        const QCPRange graphKeys = graph->getKeyRange(found);
        const QCPRange graphValues = graph->getValueRange(found);
        const double top = std::max(graphValues.upper, highest);
        const double bottom = lowest > 0 ? std::min(graphValues.lower, lowest) : graphValues.lower;
        keys = {graphKeys.lower, graphKeys.upper};
        values = {std::max(bottom, top / maxRatio), top};
    }
    keys = WithLogMargin(keys, margin, minKeyRatio);
    values = WithLogMargin(values, margin, minValueRatio);
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
