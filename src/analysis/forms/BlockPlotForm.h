// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <functional>
#include <string>

#include "analysis/NoiseAnalysis.h"
#include "ui/Form.h"
#include "ui/PlotView.h"

namespace vx3260 {

/// What HistogramForm and PlotForm share: a plot of an analysed block that can be saved as a
/// picture and as comma-separated values, and copied.
class BlockPlotForm : public Form {
    Q_OBJECT

  protected:
    struct Controls {
        QLabel* heading;
        QLabel* boardLabel;
        PlotView* view;
        QPushButton* savePicture;
        QPushButton* saveCsv;
        QPushButton* copy;
        QPushButton* showAll;
        QPushButton* back;
        QLabel* saved;
    };

    /// The block outlives the form.
    BlockPlotForm(Services& services, const AnalysedBlock& block, QWidget* parent);

    /// Connects the controls. `subject` is what is plotted, "Histogram"; it follows the converter's
    /// name in the heading.
    void SetUp(const Controls& controls, const QString& subject);

    /// From now on the buttons are for this view, and what is plotted is another subject.
    void UseView(PlotView* view, const QString& subject);

    /// What the plot shows, for a screen reader: `further` lines after mean, sigma and span.
    void Describe(const QStringList& further);

    const AnalysedBlock& Block() const { return block_; }

    /// What is plotted, as comma-separated values.
    virtual std::string Csv() const = 0;

    /// Lines that a picture has under its title besides the conditions, the mean and sigma.
    virtual QStringList FurtherLines() const { return {}; }

  private:
    void SavePicture();
    void SaveCsv();
    void CopyPicture();
    void ShowAll();
    QStringList PictureLines() const;
    std::string CsvWithHead() const;
    void Save(const std::function<QString()>& save);

    const AnalysedBlock& block_;
    QString subject_;
    QLabel* heading_ = nullptr;
    PlotView* view_ = nullptr;
    QLabel* saved_ = nullptr;
};

/// Mean and sigma, in codes and in volts.
struct MeanAndSigma {
    QString mean;
    QString meanVolts;
    QString sigma;
    QString sigmaVolts;
};

MeanAndSigma MeanAndSigmaOf(const NoiseAnalysis& analysis);

/// The voltage of a code, with enough digits to distinguish neighbouring codes anywhere in the
/// range.
QString CodeVoltsText(const ConversionConditions& conditions, double code);

/// A voltage difference or size.
QString DistanceText(double volts);

}  // namespace vx3260
