// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "analysis/Histogram.h"
#include "analysis/forms/BlockPlotForm.h"

namespace Ui {
class HistogramForm;
}

namespace vx3260 {

/// How often the codes of a block occur, beside the normal curve of its mean and sigma. The width
/// of the bins can be chosen; the bin under the pointer is read out.
class HistogramForm final : public BlockPlotForm {
    Q_OBJECT

  public:
    /// The block outlives the form.
    HistogramForm(Services& services, const AnalysedBlock& block, QWidget* parent = nullptr);
    ~HistogramForm() override;

  protected:
    std::string Csv() const override;
    QStringList FurtherLines() const override;

  private:
    bool OneCodeABin() const { return histogram_.binWidth == histogram_.step; }
    void OfferBinWidths();
    void ChooseBinWidth();
    void Draw();
    void FillBars();
    void FillCurve();
    void SetUpAxes();
    void ShowFigures();
    QString ShapeText() const;
    void ShowBinAt(double code);
    void ShowNoBin();

    std::unique_ptr<Ui::HistogramForm> ui_;
    Histogram histogram_;
    QCPBars* bars_ = nullptr;
    QCPGraph* curve_ = nullptr;
    QCPGraph* mean_ = nullptr;
};

}  // namespace vx3260
