// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

#include <QSharedPointer>
#include <QString>
#include <string>

#include "analysis/ConversionConditions.h"

/// Ticks and their labels along a plot's axis, as many as fit its present length. An axis outlives
/// its ticker.
namespace vx3260 {

/// Ticks at whole numbers.
QSharedPointer<QCPAxisTicker> WholeNumberTicker(const QCPAxis* axis);

/// Ticks at round voltages along an axis whose range is in codes.
QSharedPointer<QCPAxisTicker> VoltsTicker(const QCPAxis* axis,
                                          const ConversionConditions& conditions);

/// Ticks at round times along an axis whose range is in readings from 1 on, `interval` seconds
/// apart.
QSharedPointer<QCPAxisTicker> SecondsTicker(const QCPAxis* axis, double interval);

/// Ticks at round multiples of `unit` along a logarithmic axis; `textOf` labels a multiple.
QSharedPointer<QCPAxisTicker> LogTicker(const QCPAxis* axis, double unit,
                                        std::string (*textOf)(double));

/// The unit of that ticker's labels at present: nV, uV, mV or V.
QString VoltsUnitOf(const QCPAxis* axis, const ConversionConditions& conditions);

}  // namespace vx3260
