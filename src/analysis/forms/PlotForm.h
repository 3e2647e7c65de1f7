// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <memory>

#include "analysis/forms/BlockPlotForm.h"
#include "analysis/forms/BlockView.h"

namespace Ui {
class PlotForm;
}

namespace vx3260 {

class SpectrumView;
class StabilityView;

/// Three views of a block, one at a time: its codes, their spectrum, their stability; the rate of
/// the readings and what the views are computed with can be chosen.
class PlotForm final : public BlockPlotForm {
    Q_OBJECT

  public:
    /// The block outlives the form.
    PlotForm(Services& services, const AnalysedBlock& block, QWidget* parent = nullptr);
    ~PlotForm() override;

  protected:
    std::string Csv() const override;
    QStringList FurtherLines() const override;

  private:
    void OfferChoices();
    void ChooseView();
    void ChooseRate();
    void ChooseSegments();
    void ChooseFactors();
    void ShowTexts();
    BlockView& View() const;

    std::unique_ptr<Ui::PlotForm> ui_;
    SpectrumView* spectrum_;
    StabilityView* stability_;
    std::array<BlockView*, 3> views_;  ///< in the order of the choice
};

}  // namespace vx3260
