// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/SpectrumView.h"

#include <algorithm>

#include "analysis/PlotCsv.h"
#include "analysis/UnitTexts.h"
#include "analysis/forms/LogPlot.h"
#include "numbers/NumberText.h"

namespace vx3260 {

SpectrumView::SpectrumView(PlotView* view, const AnalysedBlock& block)
    : BlockView(view, block),
      graph_(view->addGraph()),
      segmentLength_(DefaultSegmentLength(block.codes.size())) {
    graph_->setName(tr("Spectral density"));
    AddMarks();
    AddCursors(graph_);
    view->SetTheme([this](const PlotTheme& theme) {
        graph_->setPen(QPen(theme.data, theme.dataWidth));
        for (const Mark& mark : marks_) {
            mark.line->setPen(QPen(theme.reference, 1, Qt::DotLine));
            mark.flag->setColor(theme.reference);
            mark.flag->setFont(View()->font());
        }
        Cursors()->UseTheme(theme);
    });
    SetUpVoltsAndLsb(view, Block().analysis.own);
    Compute();
    Cursors()->Set(0, graph_->dataCount() - 1);
}

void SpectrumView::AddMarks() {
    for (std::size_t i = 0; i < marks_.size(); ++i) {
        Mark& mark = marks_.at(i);
        mark = {new QCPItemLine(View()), new QCPItemText(View())};
        PlaceAcross(mark.line->start, 0);
        PlaceAcross(mark.line->end, 1);
        // Below the cursors' flags, one below the other: they may be at the same frequency.
        PlaceAcross(mark.flag->position, i == 0 ? 0.1 : 0.18);
        mark.flag->setPadding({3, 0, 3, 0});
    }
}

void SpectrumView::UseRate(std::optional<double> rate) {
    rate_ = rate;
    Compute();
}

void SpectrumView::UseSegments(std::size_t segmentLength, Trend trend) {
    segmentLength_ = segmentLength;
    trend_ = trend;
    Compute();
}

void SpectrumView::Compute() {
    const double before = spectrum_.rate;
    spectrum_ = ComputeSpectrum(Block().codes, rate_.value_or(1), segmentLength_, trend_);
    Draw();
    if (before == spectrum_.rate) {
        Cursors()->FollowGraph();
    } else {
        Cursors()->Set(0, graph_->dataCount() - 1);
    }
    PlaceMarks();
    View()->xAxis->setLabel(rate_ ? tr("Frequency (Hz)") : tr("Frequency (parts of the rate)"));
    View()->yAxis->setLabel(rate_ ? tr("Density (V/√Hz)") : tr("Density (V/√Hz at 1 Hz rate)"));
    View()->yAxis2->setLabel(rate_ ? tr("LSB/√Hz") : tr("LSB/√Hz at 1 Hz rate"));
    emit Changed();
}

void SpectrumView::Draw() {
    const double volts = Block().analysis.own.lsbVolts;
    graph_->data()->clear();
    // A logarithmic axis shows neither the frequency 0 nor a density of 0.
    for (std::size_t k = 1; k < spectrum_.density.size(); ++k) {
        if (spectrum_.density[k] > 0) {
            graph_->addData(spectrum_.frequencies[k], spectrum_.density[k] * volts);
        }
    }
    ShowExtent(View(), ExtentOf(graph_, Block().analysis.own.StepVolts()));
}

void SpectrumView::PlaceMarks() {
    const std::array<MainsLine, 2> lines = MainsLinesAt(spectrum_.rate);
    for (std::size_t i = 0; i < marks_.size(); ++i) {
        const Mark& mark = marks_.at(i);
        const double frequency = lines.at(i).frequency;
        const bool visible = rate_ && frequency >= spectrum_.Resolution() / 2;
        mark.line->setVisible(visible);
        mark.flag->setVisible(visible);
        // On the side where there is room.
        const bool onTheRight = frequency > spectrum_.rate / 8;
        mark.flag->setPositionAlignment(Qt::AlignTop |
                                        (onTheRight ? Qt::AlignRight : Qt::AlignLeft));
        mark.flag->setText(
            tr("%1 Hz").arg(QString::fromStdString(ShortestText(lines.at(i).mains))));
        for (QCPItemPosition* position : {mark.line->start, mark.line->end, mark.flag->position}) {
            position->setCoords(frequency, position->coords().y());
        }
    }
}

QString SpectrumView::FrequencyText(double frequency) const {
    return QString::fromStdString(rate_ ? HertzText(frequency)
                                        : RoundedText(frequency) + " of the rate");
}

QString SpectrumView::MainsText() const {
    QStringList texts;
    for (const MainsLine& line : MainsLinesAt(spectrum_.rate)) {
        texts.append(tr("%1 Hz at %2")
                         .arg(QString::fromStdString(ShortestText(line.mains)),
                              FrequencyText(line.frequency)));
    }
    return tr("mains of %1").arg(texts.join(tr(", ")));
}

QString SpectrumView::Summary() const {
    if (graph_->dataCount() == 0) {
        return tr("The codes do not vary beside their trend: the density is 0 or not defined.");
    }
    return tr("%1 of %2, every %3; %4")
        .arg(QString::fromStdString(
                 CountText(static_cast<std::int64_t>(spectrum_.segments), "segment")),
             QString::fromStdString(
                 CountText(static_cast<std::int64_t>(spectrum_.segmentLength), "reading")),
             FrequencyText(spectrum_.Resolution()),
             rate_ ? MainsText()
                   : tr("the rate of the readings is unknown: enter it for hertz and mains"));
}

QString SpectrumView::TextAt(PlotCursors::Name name) const {
    const std::size_t nearest = NearestFrequency(spectrum_, Cursors()->KeyOf(name));
    const CodeScale scale = CodeScaleOf(Block().analysis.own);
    const double density = spectrum_.density[nearest];
    return tr("%1, %2, %3/√Hz")
        .arg(FrequencyText(spectrum_.frequencies[nearest]),
             QString::fromStdString(VoltsPerRootHertzText(density * scale.volts)),
             QString::fromStdString(LsbText(density * scale.lsb)));
}

QString SpectrumView::Difference() const {
    const auto& [from, to] =
        std::minmax({Cursors()->KeyOf(PlotCursors::A), Cursors()->KeyOf(PlotCursors::B)});
    // The cursors' frequencies are the spectrum's: a little more includes both.
    const double spare = spectrum_.Resolution() / 4;
    const double noise = IntegratedNoise(spectrum_, from - spare, to + spare);
    const CodeScale scale = CodeScaleOf(Block().analysis.own);
    return tr("A to B: %1 RMS, %2, from %3 to %4")
        .arg(QString::fromStdString(RmsText(noise * scale.volts)),
             QString::fromStdString(LsbText(noise * scale.lsb)), FrequencyText(from),
             FrequencyText(to));
}

std::string SpectrumView::Csv() const {
    return SpectrumCsv(spectrum_, CodeScaleOf(Block().analysis.own),
                       rate_ ? TimeUnit::Second : TimeUnit::Reading);
}

}  // namespace vx3260

#include "moc_SpectrumView.cpp"
