// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/BlockView.h"

namespace vx3260 {

void BlockView::AddCursors(QCPGraph* graph) {
    cursors_ = new PlotCursors(view_, graph);
    connect(cursors_, &PlotCursors::Changed, this, &BlockView::Changed);
}

QString BlockView::CursorText(PlotCursors::Name name) const {
    const QString letter = name == PlotCursors::A ? QStringLiteral("A") : QStringLiteral("B");
    return cursors_->HavePoints() ? tr("%1: %2").arg(letter, TextAt(name)) : QString();
}

QString BlockView::DifferenceText() const {
    return cursors_->HavePoints() ? Difference() : QString();
}

}  // namespace vx3260

#include "moc_BlockView.cpp"
