// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "analysis/Spectrum.h"
#include "analysis/forms/BlockView.h"

namespace vx3260 {

/// The spectral density in volts over frequency, on logarithmic axes, with LSB on the right and
/// marks where the mains appear. Without a rate, frequencies are parts of it.
class SpectrumView final : public BlockView {
    Q_OBJECT

  public:
    SpectrumView(PlotView* view, const AnalysedBlock& block);

    QString Subject() const override { return tr("Spectrum"); }
    void UseRate(std::optional<double> rate) override;
    QString Summary() const override;
    std::string Csv() const override;

    /// `segmentLength` is not above the number of readings.
    void UseSegments(std::size_t segmentLength, Trend trend);

  protected:
    QString TextAt(PlotCursors::Name name) const override;
    QString Difference() const override;

  private:
    /// A line with the mains' frequency beside it.
    struct Mark {
        QCPItemLine* line;
        QCPItemText* flag;
    };

    void AddMarks();
    void Compute();
    void Draw();
    void PlaceMarks();
    QString FrequencyText(double frequency) const;
    QString MainsText() const;

    QCPGraph* graph_;
    std::array<Mark, 2> marks_{};  ///< in the order of MainsLinesAt
    std::optional<double> rate_;
    std::size_t segmentLength_;
    Trend trend_ = Trend::Mean;
    Spectrum spectrum_{};
};

}  // namespace vx3260
