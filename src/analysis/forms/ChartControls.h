// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "analysis/forms/StripChart.h"

namespace Ui {
class ChartControls;
}

namespace vx3260 {

/// The controls of the charts of a reading form: whether they are shown, how much of the past,
/// pause and clear. They can be clicked while a reading runs, without taking the focus.
class ChartControls final : public QWidget {
    Q_OBJECT

  public:
    explicit ChartControls(QWidget* parent = nullptr);
    ~ChartControls() override;

    void Control(std::vector<StripChart*> charts);

    /// Whether the charts are to be shown; at first not.
    void SetShown(bool shown);

  signals:
    void ShownChanged(bool shown);

  private:
    void UseSpan(int index);
    void Pause(bool paused);
    void Clear();

    std::unique_ptr<Ui::ChartControls> ui_;
    std::vector<StripChart*> charts_;
};

}  // namespace vx3260
