// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "analysis/Stability.h"
#include "analysis/forms/BlockView.h"

namespace vx3260 {

/// The Allan deviation in volts over averaging time, on logarithmic axes, with LSB on the right,
/// confidence bars and the slope of white noise. Without a rate, times are in readings.
class StabilityView final : public BlockView {
    Q_OBJECT

  public:
    StabilityView(PlotView* view, const AnalysedBlock& block);

    QString Subject() const override { return tr("Stability"); }
    void UseRate(std::optional<double> rate) override;
    QString Summary() const override;
    std::string Csv() const override;

    void UseFactors(AveragingFactors factors);

  protected:
    QString TextAt(PlotCursors::Name name) const override;
    QString Difference() const override;

  private:
    void Compute();
    void Draw();
    void DrawWhiteNoise();
    void ShowBarsOrBand();
    double TimeOf(std::size_t factor) const;
    QString TimeText(std::size_t factor) const;
    const AllanPoint& PointOf(PlotCursors::Name name) const;

    QCPGraph* graph_;
    QCPGraph* whiteNoise_;
    QCPErrorBars* bars_;
    QCPGraph* low_;   ///< the limits of many points are a band
    QCPGraph* high_;  ///< likewise
    std::optional<double> rate_;
    AveragingFactors factors_ = AveragingFactors::Octave;
    std::vector<AllanPoint> points_;
    std::vector<AllanPoint> drawn_;  ///< those above 0, which logarithmic axes show
};

}  // namespace vx3260
