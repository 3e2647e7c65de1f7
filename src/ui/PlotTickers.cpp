// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PlotTickers.h"

#include <algorithm>
#include <vector>

#include "analysis/PlotScale.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

QVector<double> ToVector(const std::vector<double>& values) {
    return {values.begin(), values.end()};
}

/// How many steps fit an axis so that the figures at its ticks keep apart. The picture's size is
/// known before the axis has its own.
int MaxSteps(const QCPAxis& axis) {
    constexpr double linesPerStep = 2.5;
    constexpr double labelsPerStep = 1.6;
    const QFontMetrics metrics(axis.tickLabelFont());
    const QSize size = axis.parentPlot()->viewport().size();
    const int widest = metrics.horizontalAdvance(QStringLiteral("88888888"));
    const double steps = axis.orientation() == Qt::Vertical
                             ? size.height() / (linesPerStep * metrics.height())
                             : size.width() / (labelsPerStep * widest);
    return std::max(1, static_cast<int>(steps));
}

class AxisTicker : public QCPAxisTicker {
  public:
    explicit AxisTicker(const QCPAxis* axis) : axis_(axis) {}

  protected:
    int Steps() const { return MaxSteps(*axis_); }

  private:
    const QCPAxis* axis_;
};

class WholeNumbers final : public AxisTicker {
  public:
    using AxisTicker::AxisTicker;

    void generate(const QCPRange& range, const QLocale& /*locale*/, QChar /*format*/,
                  int /*precision*/, QVector<double>& ticks, QVector<double>* subTicks,
                  QVector<QString>* labels) override {
        const double step = TickStep(range.size(), Steps(), 1);
        const double subStep = SubTickStep(step, 1);
        ticks = ToVector(TicksIn({range.lower, range.upper}, step));
        if (subTicks != nullptr) {
            *subTicks = subStep == 0 ? QVector<double>{}
                                     : ToVector(TicksIn({range.lower, range.upper}, subStep));
        }
        if (labels != nullptr) {
            labels->clear();
            for (const double tick : ticks) {
                labels->append(QString::fromStdString(FixedText(tick, 0)));
            }
        }
    }
};

/// A voltage axis over a range of codes at present.
struct VoltsAxis {
    AxisRange volts;
    double step;
    VoltsScale scale;
};

VoltsAxis VoltsAxisOver(const QCPRange& codes, const ConversionConditions& conditions, int steps) {
    const AxisRange volts{conditions.VoltsOf(codes.lower), conditions.VoltsOf(codes.upper)};
    const double step = TickStep(volts.Span(), steps);
    return {volts, step, VoltsScaleOf(volts, step)};
}

class Volts final : public AxisTicker {
  public:
    Volts(const QCPAxis* axis, ConversionConditions conditions)
        : AxisTicker(axis), conditions_(conditions) {}

    void generate(const QCPRange& range, const QLocale& /*locale*/, QChar /*format*/,
                  int /*precision*/, QVector<double>& ticks, QVector<double>* subTicks,
                  QVector<QString>* labels) override {
        const VoltsAxis axis = VoltsAxisOver(range, conditions_, Steps());
        const std::vector<double> volts = TicksIn(axis.volts, axis.step);
        ticks = Codes(volts);
        if (subTicks != nullptr) {
            *subTicks = Codes(TicksIn(axis.volts, SubTickStep(axis.step)));
        }
        if (labels != nullptr) {
            labels->clear();
            for (const double tick : volts) {
                labels->append(QString::fromStdString(axis.scale.TextOf(tick)));
            }
        }
    }

  private:
    QVector<double> Codes(const std::vector<double>& volts) const {
        QVector<double> codes;
        for (const double tick : volts) {
            codes.append(conditions_.CodeOf(tick));
        }
        return codes;
    }

    ConversionConditions conditions_;
};

class Seconds final : public AxisTicker {
  public:
    Seconds(const QCPAxis* axis, double interval) : AxisTicker(axis), interval_(interval) {}

    void generate(const QCPRange& range, const QLocale& /*locale*/, QChar /*format*/,
                  int /*precision*/, QVector<double>& ticks, QVector<double>* subTicks,
                  QVector<QString>* labels) override {
        const AxisRange seconds{(range.lower - 1) * interval_, (range.upper - 1) * interval_};
        const double step = TickStep(seconds.Span(), Steps());
        const std::vector<double> times = TicksIn(seconds, step);
        ticks = Readings(times);
        if (subTicks != nullptr) {
            *subTicks = Readings(TicksIn(seconds, SubTickStep(step)));
        }
        if (labels != nullptr) {
            labels->clear();
            for (const double time : times) {
                labels->append(QString::fromStdString(FixedText(time, DecimalsOf(step))));
            }
        }
    }

  private:
    QVector<double> Readings(const std::vector<double>& times) const {
        QVector<double> readings;
        for (const double time : times) {
            readings.append(time / interval_ + 1);
        }
        return readings;
    }

    double interval_;
};

class Logarithmic final : public AxisTicker {
  public:
    Logarithmic(const QCPAxis* axis, double unit, std::string (*textOf)(double))
        : AxisTicker(axis), unit_(unit), textOf_(textOf) {}

    void generate(const QCPRange& range, const QLocale& /*locale*/, QChar /*format*/,
                  int /*precision*/, QVector<double>& ticks, QVector<double>* subTicks,
                  QVector<QString>* labels) override {
        const LogTicks found = LogTicksIn({range.lower / unit_, range.upper / unit_}, Steps());
        ticks = Scaled(found.ticks);
        if (subTicks != nullptr) {
            *subTicks = Scaled(found.subTicks);
        }
        if (labels != nullptr) {
            labels->clear();
            for (const double tick : found.ticks) {
                labels->append(QString::fromStdString(textOf_(tick)));
            }
        }
    }

  private:
    QVector<double> Scaled(const std::vector<double>& multiples) const {
        QVector<double> coordinates;
        for (const double multiple : multiples) {
            coordinates.append(multiple * unit_);
        }
        return coordinates;
    }

    double unit_;
    std::string (*textOf_)(double);
};

}  // namespace

QSharedPointer<QCPAxisTicker> WholeNumberTicker(const QCPAxis* axis) {
    return QSharedPointer<WholeNumbers>::create(axis);
}

QSharedPointer<QCPAxisTicker> VoltsTicker(const QCPAxis* axis,
                                          const ConversionConditions& conditions) {
    return QSharedPointer<Volts>::create(axis, conditions);
}

QSharedPointer<QCPAxisTicker> SecondsTicker(const QCPAxis* axis, double interval) {
    return QSharedPointer<Seconds>::create(axis, interval);
}

QSharedPointer<QCPAxisTicker> LogTicker(const QCPAxis* axis, double unit,
                                        std::string (*textOf)(double)) {
    return QSharedPointer<Logarithmic>::create(axis, unit, textOf);
}

QString VoltsUnitOf(const QCPAxis* axis, const ConversionConditions& conditions) {
    const VoltsAxis volts = VoltsAxisOver(axis->range(), conditions, MaxSteps(*axis));
    return QString::fromUtf8(volts.scale.unitName);
}

}  // namespace vx3260
