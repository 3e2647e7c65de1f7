// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

#include <QByteArray>
#include <QImage>
#include <QStringList>
#include <functional>

namespace vx3260 {

/// The colours and widths of a plot. Data and reference are of the Okabe-Ito palette, which stays
/// distinguishable with every kind of colour vision.
struct PlotTheme {
    QColor background;
    QColor text;
    QColor grid;
    QColor data;
    QColor reference;  ///< what the data is compared with
    double dataWidth;  ///< of a line through many points: a pixel, wider ones take seconds
};

/// `part` of one colour, from 0 to 1, and the rest of the other.
QColor Mixed(const QColor& one, const QColor& other, double part);

/// The limits of moving and of zooming.
struct PlotExtent {
    QCPRange keys;                 ///< all of the horizontal axis
    QCPRange values;               ///< all of the vertical axis
    double minKeys;                ///< the smallest span shown
    double minValues;              ///< likewise
    bool valuesFromStart = false;  ///< the vertical axis always begins at its lower end
    bool logarithmic = false;      ///< both axes; the smallest spans are in decades
};

/// A plot in the program's manner: the palette's colours, light or dark; moved by dragging, by the
/// arrow keys and Page Up and Down; zoomed by the wheel, over an axis that axis alone, by a
/// rectangle dragged with Shift or the right button, by + and -, one axis by Shift with an arrow
/// key; Home shows everything again. The right axis has the range of the left one, the upper
/// axis that of the lower one, at any time.
class PlotView final : public QCustomPlot {
    Q_OBJECT

  public:
    explicit PlotView(QWidget* parent = nullptr);

    /// Calls `useTheme` now and whenever the theme changes: with the palette, and for an export and
    /// after it.
    void SetTheme(std::function<void(const PlotTheme&)> useTheme);

    /// For a plot that needs none; its place goes to the plot.
    void HideLegend();

    /// Sets the limits and shows everything.
    void SetExtent(const PlotExtent& extent);
    void ShowAll();

    /// Moves the horizontal axis just so far that `key` is visible with some room beside it.
    void Reveal(double key);

    /// What is seen, dark on white in any theme, every point drawn; with lines of text over it, the
    /// first as the title.
    QImage Picture(const QStringList& lines);
    QByteArray Png(const QStringList& lines);
    QByteArray Pdf(const QStringList& lines);

  signals:
    /// The left button was clicked at a place of the horizontal axis.
    void Clicked(double key);
    /// The pointer is over a place of the horizontal axis.
    void PointedAt(double key);
    /// The pointer has left the plot.
    void PointedAway();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void processRectZoom(QRect rect, QMouseEvent* event) override;

  private:
    void SetUpLegend();
    void KeepInside();
    void UseFonts();
    void UseTheme(const PlotTheme& theme);
    void AddTextOnTop(const QString& text, const QFont& textFont, const QColor& colour);
    bool HandleKey(const QKeyEvent& event);
    /// Calls `draw` while the plot looks as it is exported.
    void Export(const QStringList& lines, const std::function<void(QSize)>& draw);

    std::function<void(const PlotTheme&)> useTheme_;
    PlotExtent extent_;
};

}  // namespace vx3260
