// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>

#include "analysis/CodeWindow.h"
#include "analysis/ConversionConditions.h"
#include "analysis/PlotScale.h"
#include "ui/PlotView.h"

namespace Ui {
class StripChart;
}

namespace vx3260 {

/// A live chart of one converter's codes over the last seconds, with a line at their mean, and the
/// figures of exactly the codes on the chart. Codes are drawn from the event loop, some time after
/// they are added and only while the chart is visible, 30 times a second at most and so rarely that
/// drawing takes no more than a small part of a processor's time.
class StripChart final : public QWidget {
    Q_OBJECT

  public:
    explicit StripChart(QWidget* parent = nullptr);
    ~StripChart() override;

    /// What turns codes into volts from now on.
    void SetConditions(const ConversionConditions& conditions);

    void SetSpan(CodeWindow::Duration span);

    /// As CodeWindow has them.
    void StartReading() { codes_.StartReading(); }
    void Add(CodeWindow::Duration time, std::int32_t code);
    void Clear();

    /// While paused, the chart shows the moment of the pause. Codes are added nevertheless.
    void SetPaused(bool paused);

    /// Draws what the chart shows at present.
    void Draw();

    QSize sizeHint() const override;

    const CodeWindow& Shown() const { return paused_ ? *paused_ : codes_; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void UseSteadyWidths();
    void SetUpAxes();
    void UseTheme(const PlotTheme& theme);
    void DrawSoon();
    /// Puts the codes on the chart, which is drawn later.
    void SetCodes();
    /// True if the axes have moved.
    bool FollowRange();
    void ShowFigures();

    std::unique_ptr<Ui::StripChart> ui_;
    PlotView* plot_;
    QCPGraph* graph_;
    QCPGraph* mean_;
    std::optional<ConversionConditions> conditions_;
    CodeWindow codes_;
    std::optional<CodeWindow> paused_;
    std::optional<AxisRange> range_;  ///< codes that the axis shows
    QTimer next_;
};

}  // namespace vx3260
