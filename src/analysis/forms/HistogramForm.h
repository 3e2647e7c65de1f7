// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "analysis/Histogram.h"
#include "analysis/forms/BlockPlotForm.h"

namespace Ui {
class HistogramForm;
}

namespace vx3260 {

/// How often the codes of a block occur, beside the normal curve of its mean and sigma.
class HistogramForm final : public BlockPlotForm {
    Q_OBJECT

  public:
    /// The block outlives the form.
    HistogramForm(Services& services, const AnalysedBlock& block, QWidget* parent = nullptr);
    ~HistogramForm() override;

  protected:
    std::string Csv() const override;

  private:
    bool OneCodeABin() const { return histogram_.binWidth == 1; }
    void Draw();
    void SetUpAxes();
    void ShowFigures();

    std::unique_ptr<Ui::HistogramForm> ui_;
    Histogram histogram_;
};

}  // namespace vx3260
