// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <optional>
#include <string>

#include "analysis/NoiseAnalysis.h"
#include "ui/PlotCursors.h"
#include "ui/PlotView.h"

namespace vx3260 {

/// One of the views of a block in PlotForm: it draws into a plot of its own, with two cursors, and
/// says what they are on.
class BlockView : public QObject {
    Q_OBJECT

  public:
    /// What is seen: "Spectrum".
    virtual QString Subject() const = 0;

    /// How many readings there were in a second; without it, frequencies and times are in readings.
    virtual void UseRate(std::optional<double> rate) = 0;

    /// What the figures are made of, or what they lack; may be empty.
    virtual QString Summary() const = 0;

    /// Both are empty for a graph without points.
    QString CursorText(PlotCursors::Name name) const;
    QString DifferenceText() const;
    PlotCursors::Name ChosenCursor() const { return cursors_->Chosen(); }

    /// What is plotted, as comma-separated values.
    virtual std::string Csv() const = 0;

    PlotView* View() const { return view_; }

  signals:
    /// One of the texts is another.
    void Changed();

  protected:
    /// Both outlive the view.
    BlockView(PlotView* view, const AnalysedBlock& block) : view_(view), block_(block) {}

    /// Of cursors that are on points.
    virtual QString TextAt(PlotCursors::Name name) const = 0;
    virtual QString Difference() const = 0;

    /// To be called when the graph is there.
    void AddCursors(QCPGraph* graph);

    const AnalysedBlock& Block() const { return block_; }
    PlotCursors* Cursors() const { return cursors_; }

  private:
    PlotView* view_;
    const AnalysedBlock& block_;
    PlotCursors* cursors_ = nullptr;
};

}  // namespace vx3260
