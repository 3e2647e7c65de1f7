// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

#include <QSharedPointer>
#include <QString>

#include "analysis/ConversionConditions.h"

/// Ticks and their labels along a plot's axis, as many as fit its present length. An axis outlives
/// its ticker.
namespace vx3260 {

/// Ticks at whole numbers.
QSharedPointer<QCPAxisTicker> WholeNumberTicker(const QCPAxis* axis);

/// Ticks at round voltages along an axis whose range is in codes.
QSharedPointer<QCPAxisTicker> VoltsTicker(const QCPAxis* axis,
                                          const ConversionConditions& conditions);

/// The unit of that ticker's labels at present: nV, uV, mV or V.
QString VoltsUnitOf(const QCPAxis* axis, const ConversionConditions& conditions);

}  // namespace vx3260
