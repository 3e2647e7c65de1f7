// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "analysis/forms/BlockView.h"

namespace vx3260 {

/// The codes as a strip chart over the reading number, from 1 on, with volts on the right, mean and
/// sigma, and seconds above where the rate is known.
class CodesView final : public BlockView {
    Q_OBJECT

  public:
    CodesView(PlotView* view, const AnalysedBlock& block);

    QString Subject() const override { return tr("Codes"); }
    void UseRate(std::optional<double> rate) override;
    QString Summary() const override;
    std::string Csv() const override;

  protected:
    QString TextAt(PlotCursors::Name name) const override;
    QString Difference() const override;

  private:
    void Draw();
    void SetUpAxes();
    void UseTheme(const PlotTheme& theme);
    /// Horizontal lines from the first reading to the last: the mean, then sigma on its sides.
    std::vector<QCPGraph*> AddLevels();
    void FollowView();
    double CodeAt(PlotCursors::Name name) const;
    /// ", 1.011 s" of that many readings; empty where the rate is unknown.
    QString TimeOf(int readings) const;

    QCPGraph* codes_ = nullptr;
    std::vector<QCPGraph*> levels_;  ///< mean and sigma
    std::vector<QCPGraph*> edges_;   ///< under them
    std::optional<double> rate_;
};

}  // namespace vx3260
