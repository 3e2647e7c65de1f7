// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <memory>

#include "analysis/NoiseAnalysis.h"
#include "ui/Form.h"

namespace Ui {
class NoiseForm;
}

namespace vx3260 {

class HistogramForm;
class PlotForm;

/// The noise of one converter's block, in codes and in volts; what MainNoiseForm and AuxNoiseForm
/// share. Reads range and polarity from the chip when it opens, and leaves the block's statistics
/// in the application state. Throws from its constructor on a block that cannot be analysed.
class NoiseForm : public Form {
    Q_OBJECT

  public:
    ~NoiseForm() override;

  protected:
    NoiseForm(Services& services, Converter converter, QWidget* parent);

  private:
    ConversionConditions ReadConditions();
    /// Opens a plot beside this form, which owns it, or brings it to the front.
    template <typename Plot>
    void OpenPlot(QPointer<Plot>& plot);
    void PlotGraph();
    void PlotHistogram();
    void KeepStatistics();
    void ShowTexts();
    void ShowReading();
    void ShowResolution();

    std::unique_ptr<Ui::NoiseForm> ui_;
    Converter converter_;
    AnalysedBlock block_;
    QPointer<PlotForm> graph_;
    QPointer<HistogramForm> histogram_;
};

}  // namespace vx3260
