// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <array>

#include "ui/PlotView.h"

namespace vx3260 {

/// Two cursors, A and B, on the points of a graph. The keys A and B choose the one that a click on
/// the plot sets to the nearest point, and that Ctrl with the left or right arrow key moves by a
/// point, with Shift by ten. The plot follows it.
class PlotCursors final : public QObject {
    Q_OBJECT

  public:
    enum Name { A, B };

    /// On a graph of the view that has its points; both outlive the cursors, which stand at a
    /// quarter and at three quarters of the points. They are hidden while there are none.
    PlotCursors(PlotView* view, QCPGraph* graph);

    /// The number of the point that a cursor is on, from 0. The graph has points.
    int PointOf(Name name) const { return cursors_[name].point; }
    /// Where that point is on the horizontal axis.
    double KeyOf(Name name) const { return cursors_[name].marker->graphKey(); }
    bool HavePoints() const { return graph_->dataCount() > 0; }
    /// Puts both on points.
    void Set(int pointOfA, int pointOfB);
    /// The graph has other points: puts each on the one nearest to where it was.
    void FollowGraph();
    Name Chosen() const { return chosen_; }

    /// Draws the cursors in this theme from now on.
    void UseTheme(const PlotTheme& theme);

  signals:
    /// A cursor was moved, or the other one chosen.
    void Changed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Cursor {
        QCPItemLine* line;
        QCPItemTracer* marker;
        QCPItemText* flag;
        int point = 0;
    };

    Cursor MakeCursor(Name name);
    bool HandleKey(const QKeyEvent& event);
    void Choose(Name name);
    void MoveTo(int point);
    void MoveToKey(double key);
    int PointNear(double key) const;
    void Place(Cursor& cursor, int point);
    void Update();

    PlotView* view_;
    QCPGraph* graph_;
    std::array<Cursor, 2> cursors_;
    Name chosen_ = A;
    PlotTheme theme_{};
};

}  // namespace vx3260
