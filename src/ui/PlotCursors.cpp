// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PlotCursors.h"

#include <QKeyEvent>
#include <algorithm>

namespace vx3260 {
namespace {

constexpr int leapPoints = 10;
constexpr double markerSize = 9;

void Span(QCPItemPosition* position, double y) {
    position->setTypeX(QCPItemPosition::ptPlotCoords);
    position->setTypeY(QCPItemPosition::ptAxisRectRatio);
    position->setCoords(0, y);
}

}  // namespace

PlotCursors::PlotCursors(PlotView* view, QCPGraph* graph)
    : QObject(view), view_(view), graph_(graph), cursors_{MakeCursor(A), MakeCursor(B)} {
    constexpr int parts = 4;
    Place(cursors_[A], graph->dataCount() / parts);
    Place(cursors_[B], graph->dataCount() * (parts - 1) / parts);
    connect(view, &PlotView::Clicked, this, &PlotCursors::MoveToKey);
    view->installEventFilter(this);
}

/// The flags stand on either side of their lines: both can be on one point.
PlotCursors::Cursor PlotCursors::MakeCursor(Name name) {
    const QMargins padding(3, 0, 3, 0);
    Cursor cursor{new QCPItemLine(view_), new QCPItemTracer(view_), new QCPItemText(view_)};
    for (QCPAbstractItem* item :
         std::initializer_list<QCPAbstractItem*>{cursor.line, cursor.marker, cursor.flag}) {
        item->setLayer(QStringLiteral("overlay"));
    }
    Span(cursor.line->start, 0);
    Span(cursor.line->end, 1);
    Span(cursor.flag->position, 0);
    cursor.flag->setText(name == A ? QStringLiteral("A") : QStringLiteral("B"));
    cursor.flag->setPositionAlignment(Qt::AlignTop | (name == A ? Qt::AlignRight : Qt::AlignLeft));
    cursor.flag->setPadding(padding);
    cursor.marker->setStyle(QCPItemTracer::tsCircle);
    cursor.marker->setSize(markerSize);
    return cursor;
}

void PlotCursors::UseTheme(const PlotTheme& theme) {
    theme_ = theme;
    for (const Name name : {A, B}) {
        const Cursor& cursor = cursors_[name];
        const bool chosen = name == chosen_;
        QFont font = view_->font();
        font.setBold(chosen);
        cursor.line->setPen(QPen(theme.text, 1, name == A ? Qt::DashLine : Qt::DashDotLine));
        cursor.marker->setPen(QPen(theme.text, 2));
        cursor.marker->setBrush(chosen ? theme.reference : theme.background);
        cursor.flag->setFont(font);
        cursor.flag->setPen(theme.text);
        cursor.flag->setBrush(chosen ? theme.text : theme.background);
        cursor.flag->setColor(chosen ? theme.background : theme.text);
    }
}

bool PlotCursors::eventFilter(QObject* watched, QEvent* event) {
    return (event->type() == QEvent::KeyPress &&
            HandleKey(static_cast<const QKeyEvent&>(*event))) ||
           QObject::eventFilter(watched, event);
}

bool PlotCursors::HandleKey(const QKeyEvent& event) {
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    const int points = shift ? leapPoints : 1;
    if (event.modifiers().testFlag(Qt::AltModifier)) {
        return false;
    }
    if (!control && (event.key() == Qt::Key_A || event.key() == Qt::Key_B)) {
        Choose(event.key() == Qt::Key_A ? A : B);
        return true;
    }
    if (control && (event.key() == Qt::Key_Left || event.key() == Qt::Key_Right)) {
        MoveTo(cursors_[chosen_].point + (event.key() == Qt::Key_Left ? -points : points));
        return true;
    }
    return false;
}

void PlotCursors::Choose(Name name) {
    chosen_ = name;
    UseTheme(theme_);
    Update();
}

void PlotCursors::MoveTo(int point) {
    if (!HavePoints()) {
        return;
    }
    Cursor& cursor = cursors_[chosen_];
    Place(cursor, std::clamp(point, 0, graph_->dataCount() - 1));
    view_->Reveal(graph_->dataMainKey(cursor.point));
    Update();
}

void PlotCursors::MoveToKey(double key) {
    MoveTo(PointNear(key));
}

/// As it looks, on a logarithmic axis too.
int PlotCursors::PointNear(double key) const {
    const auto pixel = [this](double k) { return view_->xAxis->coordToPixel(k); };
    const int next = graph_->findBegin(key, false);
    const int last = graph_->dataCount() - 1;
    const bool before =
        next > 0 && (next > last || pixel(key) - pixel(graph_->dataMainKey(next - 1)) <
                                        pixel(graph_->dataMainKey(next)) - pixel(key));
    return before ? next - 1 : next;
}

void PlotCursors::Set(int pointOfA, int pointOfB) {
    Place(cursors_[A], pointOfA);
    Place(cursors_[B], pointOfB);
}

void PlotCursors::FollowGraph() {
    Set(PointNear(KeyOf(A)), PointNear(KeyOf(B)));
}

void PlotCursors::Place(Cursor& cursor, int point) {
    for (QCPAbstractItem* item :
         std::initializer_list<QCPAbstractItem*>{cursor.line, cursor.marker, cursor.flag}) {
        item->setVisible(HavePoints());
    }
    cursor.marker->setGraph(HavePoints() ? graph_ : nullptr);
    if (!HavePoints()) {
        return;
    }
    const double key = graph_->dataMainKey(point);
    cursor.point = point;
    cursor.marker->setGraphKey(key);
    for (QCPItemPosition* position :
         {cursor.line->start, cursor.line->end, cursor.flag->position}) {
        position->setCoords(key, position->coords().y());
    }
}

void PlotCursors::Update() {
    view_->layer(QStringLiteral("overlay"))->replot();
    emit Changed();
}

}  // namespace vx3260

#include "moc_PlotCursors.cpp"
