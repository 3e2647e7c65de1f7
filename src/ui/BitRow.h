// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <vector>

namespace vx3260 {

/// A register's bits as a row of small cells in groups of four, each under its bit's number. A set
/// bit is marked by its text, by weight and by a filled cell; tool tip and accessible name of a
/// cell have its bit's number, name and level.
///
/// The properties are set in the form's file. The widget has a grid layout there, with the label of
/// the register's value at its end, column 30 of row 1; a label at a bit's place, in row 0 or 1,
/// takes the place of the bit's number or cell.
class BitRow final : public QWidget {
    Q_OBJECT
    /// How many bits, 1 to 24.
    Q_PROPERTY(int bitCount MEMBER bitCount_)
    /// The cells' names are "Label" and a number; this is the most significant bit's.
    Q_PROPERTY(int firstLabel MEMBER firstLabel_)
    /// Whether the numbers in the cells' names count down.
    Q_PROPERTY(bool descending MEMBER descending_)
    /// The name of a bit's number is this and the number.
    Q_PROPERTY(QString numberName MEMBER numberName_)

  public:
    using QWidget::QWidget;

    /// Makes the cells; called once, after the form's file has been loaded. `names` are the bits'
    /// names from the most significant bit down; without them, labels over cells name the bits.
    void MakeCells(std::vector<QString> names = {});

    /// The cells from the most significant bit down.
    const std::vector<QLabel*>& Cells() const { return cells_; }

    /// Makes the cells at least that wide, in pixels.
    void SetMinCellWidth(int width);

    /// Shows "1" in the cells of the bits that are set in `value` and "0" in the others.
    void ShowValue(std::int32_t value);

  protected:
    /// The cells follow a change of theme or font.
    void changeEvent(QEvent* event) override;

  private:
    void StyleCells();
    QLabel* LabelAt(int row, int column) const;
    QLabel* AddLabel(int row, int column, const QString& name, const QString& text);
    QLabel* AddCell(int column, const QString& name);
    QString AddHeading(int column, int bit);
    void AddGap(int column, QSizePolicy::Policy policy, int width);

    int bitCount_ = 8;
    int firstLabel_ = 1;
    bool descending_ = false;
    QString numberName_ = QStringLiteral("bitNumber");
    int minCellWidth_ = 0;
    std::vector<QLabel*> cells_;
    std::vector<QString> names_;
};

}  // namespace vx3260
