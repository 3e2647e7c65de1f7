// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/ChartControls.h"

#include <array>
#include <utility>

#include "ui_ChartControls.h"

namespace vx3260 {
namespace {

/// In the order of the list.
constexpr std::array<CodeWindow::Duration, 6> spans{
    std::chrono::seconds(10), std::chrono::seconds(30), std::chrono::minutes(1),
    std::chrono::minutes(2),  std::chrono::minutes(5),  CodeWindow::MaxSpan};

}  // namespace

ChartControls::ChartControls(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::ChartControls>()) {
    ui_->setupUi(this);
    for (QWidget* setting : std::initializer_list<QWidget*>{ui_->SpanCaption, ui_->SpanBox,
                                                            ui_->PauseButton, ui_->ClearButton}) {
        // Nothing moves when they come and go.
        QSizePolicy policy = setting->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        setting->setSizePolicy(policy);
        setting->hide();
        connect(ui_->ShowCheck, &QCheckBox::toggled, setting, &QWidget::setVisible);
    }
    connect(ui_->ShowCheck, &QCheckBox::toggled, this, &ChartControls::ShownChanged);
    connect(ui_->SpanBox, &QComboBox::currentIndexChanged, this, &ChartControls::UseSpan);
    connect(ui_->PauseButton, &QPushButton::toggled, this, &ChartControls::Pause);
    connect(ui_->ClearButton, &QPushButton::clicked, this, &ChartControls::Clear);
}

ChartControls::~ChartControls() = default;

void ChartControls::Control(std::vector<StripChart*> charts) {
    charts_ = std::move(charts);
    UseSpan(ui_->SpanBox->currentIndex());
}

void ChartControls::SetShown(bool shown) {
    ui_->ShowCheck->setChecked(shown);
}

void ChartControls::UseSpan(int index) {
    for (StripChart* chart : charts_) {
        chart->SetSpan(spans.at(static_cast<std::size_t>(index)));
    }
}

void ChartControls::Pause(bool paused) {
    for (StripChart* chart : charts_) {
        chart->SetPaused(paused);
    }
}

void ChartControls::Clear() {
    for (StripChart* chart : charts_) {
        chart->Clear();
    }
}

}  // namespace vx3260

#include "moc_ChartControls.cpp"
