// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "analysis/forms/BlockPlotForm.h"
#include "ui/PlotCursors.h"

namespace Ui {
class PlotForm;
}

namespace vx3260 {

/// The codes of a block as a strip chart over the reading number, from 1 on, with volts on the
/// right, mean and sigma, and two cursors.
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
    void Draw();
    void SetUpAxes();
    void UseTheme(const PlotTheme& theme);
    /// Horizontal lines from the first reading to the last: the mean, then sigma on its sides.
    std::vector<QCPGraph*> AddLevels();
    void FollowView();
    void ShowCursors();
    QString CursorText(PlotCursors::Name name) const;
    QString DifferenceText() const;

    std::unique_ptr<Ui::PlotForm> ui_;
    QCPGraph* codes_ = nullptr;
    std::vector<QCPGraph*> levels_;  ///< mean and sigma
    std::vector<QCPGraph*> edges_;   ///< under them
    PlotCursors* cursors_ = nullptr;
};

}  // namespace vx3260
