// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QScreen>
#include <QWheelEvent>
#include <cmath>
#include <numbers>
#include <numeric>
#include <random>

#include "analysis/forms/HistogramForm.h"
#include "analysis/forms/PlotForm.h"
#include "support/Folder.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

AnalysedBlock BlockOf(const std::vector<double>& codes, const ConversionConditions& conditions) {
    return {codes, AnalyseNoise(codes, conditions)};
}

const ConversionConditions& MainRange() {
    static const ConversionConditions conditions = MainConditions(2.5F, 0, Polarity::Bipolar);
    return conditions;
}

AnalysedBlock Noise(std::size_t count, double sigma) {
    std::mt19937 source(7);
    std::normal_distribution<double> normal(8438977.3, sigma);
    std::vector<double> codes(count);
    for (double& code : codes) {
        code = std::nearbyint(normal(source));
    }
    return BlockOf(codes, MainRange());
}

/// One LSB is 2.5 V / 2^15 = 76.294 uV; the mean is 2 codes above zero.
AnalysedBlock AuxBlock() {
    return BlockOf({32768, 32770, 32772, 32770, 32770},
                   AuxConditions(2.5F, AuxFullScale::Reference, Polarity::Bipolar));
}

/// The visible ranges: readings and codes.
std::pair<QCPRange, QCPRange> SeenIn(const PlotView& view) {
    return {view.xAxis->range(), view.yAxis->range()};
}

/// The entries of the legend.
std::string LegendOf(const PlotView& view) {
    QStringList names;
    for (int i = 0; i < view.legend->itemCount(); ++i) {
        auto* const item = qobject_cast<QCPPlottableLegendItem*>(view.legend->item(i));
        names.append(item->plottable()->name());
    }
    return names.join(QStringLiteral(", ")).toStdString();
}

/// Pixels of that colour.
std::ptrdiff_t CountOf(const QImage& picture, const QColor& colour) {
    const QImage opaque = picture.convertToFormat(QImage::Format_RGB32);
    const auto* const pixels = reinterpret_cast<const QRgb*>(opaque.constBits());
    return std::count(pixels, pixels + opaque.width() * opaque.height(), colour.rgb());
}

const QColor blue(0x00, 0x72, 0xB2);
const QColor vermillion(0xD5, 0x5E, 0x00);

class PlotFormsTest : public FormTest {
  protected:
    template <typename Opened>
    PlotView& OpenPlot(AnalysedBlock analysed) {
        form.reset();
        block = std::move(analysed);
        return Find<PlotView>(Open<Opened>(block), "Plot");
    }

    /// Clicks a button that asks for a file, and chooses one.
    void SaveAs(const char* button, const std::string& path, int filter = 0) {
        WhileModal([&] { Click(*form, button); },
                   [&](QDialog& asked) {
                       auto& dialog = dynamic_cast<QFileDialog&>(asked);
                       EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
                       const QString chosen = dialog.nameFilters().at(filter);
                       dialog.selectNameFilter(chosen);
                       emit dialog.filterSelected(chosen);
                       dialog.selectFile(QString::fromStdString(path));
                       asked.accept();
                   });
    }

    AnalysedBlock block;
    const Folder folder;
};

TEST_F(PlotFormsTest, HistogramDrawsBinsAndCurve) {
    EXPECT_EQ(OpenPlot<HistogramForm>(AuxBlock()).yAxis->label(), "Readings per code");
    PlotView& view = OpenPlot<HistogramForm>(Noise(2000, 250));
    EXPECT_EQ(LegendOf(view), "Readings per bin of 20 codes, Normal curve of mean and sigma, Mean");
    EXPECT_EQ(view.yAxis->label(), QStringLiteral("Readings per bin"));
    const auto* const bars = qobject_cast<QCPBars*>(view.plottable(0));
    EXPECT_EQ(bars->width(), 20);
    EXPECT_EQ(std::accumulate(bars->data()->begin(), bars->data()->end(), 0.0,
                              [](double sum, const QCPBarsData& bar) { return sum + bar.value; }),
              2000);
    bool found = false;
    const NormalFit& normal = block.analysis.normal;
    EXPECT_NEAR(view.graph(0)->getValueRange(found).upper,
                NormalCount(normal.mean, normal, 2000, 20), 1e-6);
    auto& widths = Find<QComboBox>(*form, "BinWidthBox");
    EXPECT_EQ(widths.currentText(), QStringLiteral("20 codes"));
    widths.setCurrentIndex(widths.findText(QStringLiteral("100 codes")));
    EXPECT_EQ(bars->width(), 100);
    EXPECT_EQ(view.yAxis->label(), QStringLiteral("Readings per bin"));
    emit view.PointedAt(8438949);
    EXPECT_EQ(TextOf(*form, "BinAtLabel").rfind("Codes 8438900 (80C474) to 8438999 (80C4D7), ", 0),
              0)
        << TextOf(*form, "BinAtLabel");
    emit view.PointedAt(1);
    Expect("BinAtLabel: Point at a bin to read it out.");
    // Zooming by the wheel over the whole plot, then over the vertical axis alone.
    const QCPRange codes = view.xAxis->range();
    for (const QPoint at : {view.axisRect()->center(), QPoint(4, view.axisRect()->center().y())}) {
        const double top = view.yAxis->range().upper;
        QWheelEvent wheel(at, view.mapToGlobal(at), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &wheel);
        EXPECT_EQ(view.yAxis->range().lower, 0);
        EXPECT_LT(view.yAxis->range().upper, top);
        EXPECT_DOUBLE_EQ(view.xAxis->range().size(), codes.size() * 0.8);
    }
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    form->resize(5000, 5000);
    form->show();
    EXPECT_TRUE(form->screen()->geometry().contains(form->geometry()));
}

TEST_F(PlotFormsTest, EqualCodesHaveNoCurve) {
    const AnalysedBlock still = BlockOf(std::vector<double>(20, 8388608), MainRange());
    const PlotView& histogram = OpenPlot<HistogramForm>(still);
    EXPECT_EQ(LegendOf(histogram), "Readings per code, Mean");
    EXPECT_EQ(histogram.xAxis->range(), QCPRange(8388603, 8388613));

    const PlotView& plot = OpenPlot<PlotForm>(still);
    EXPECT_EQ(LegendOf(plot), "Code, Mean");
    EXPECT_EQ(plot.yAxis->range(), QCPRange(8388603, 8388613));
    EXPECT_GT(CountOf(form->grab().toImage(), blue), 20 * 4) << "dots over the line of the mean";
}

TEST_F(PlotFormsTest, PlotShowsCodesMeanAndSigma) {
    const PlotView& view = OpenPlot<PlotForm>(AuxBlock());
    EXPECT_EQ(LegendOf(view), "Code, Mean, Mean ± 1 sigma");
    std::map<double, Qt::PenStyle> levels;
    for (int i = 1; i < view.graphCount(); ++i) {
        levels[view.graph(i)->dataMainValue(0)] = view.graph(i)->pen().style();
    }
    const double sigma = std::sqrt(2.0);
    const decltype(levels) expected{
        {32770 - sigma, Qt::DashLine}, {32770, Qt::SolidLine}, {32770 + sigma, Qt::DashLine}};
    EXPECT_EQ(levels, expected);
    EXPECT_EQ(view.graph(0)->dataMainKey(0), 1);
    EXPECT_EQ(view.graph(0)->dataMainValue(2), 32772);
    Click(*form, "Command5");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(PlotFormsTest, VoltsKeepInStepWithCodes) {
    PlotView& view = OpenPlot<PlotForm>(Noise(5000, 12));
    for (const double span : {100.0, 4.0, 30.0}) {
        view.yAxis->setRange(8438977, span, Qt::AlignCenter);
        view.replot();
        EXPECT_EQ(view.yAxis2->range(), view.yAxis->range());
        EXPECT_EQ(view.yAxis2->label(), QStringLiteral("Input (uV)"));
        const QVector<double> ticks = view.yAxis2->tickVector();
        const QVector<QString> texts = view.yAxis2->tickVectorLabels();
        ASSERT_GE(ticks.size(), 3) << span;
        for (qsizetype i = 0; i < ticks.size(); ++i) {
            EXPECT_NEAR(MainRange().VoltsOf(ticks[i]), texts[i].toDouble() * 1e-6, 1e-13);
            EXPECT_TRUE(i == 0 || texts[i] != texts[i - 1]);
        }
        for (const double tick : view.yAxis->tickVector()) {
            EXPECT_EQ(tick, std::nearbyint(tick)) << "codes are integers";
        }
    }
    EXPECT_EQ(view.graph(0)->scatterStyle().shape(), QCPScatterStyle::ssNone);
    view.xAxis->setRange(100, 130);
    view.replot();
    EXPECT_EQ(view.graph(0)->scatterStyle().shape(), QCPScatterStyle::ssDisc) << "far apart";
}

TEST_F(PlotFormsTest, KeysMoveAndZoom) {
    PlotView& view = OpenPlot<PlotForm>(Noise(200, 12));
    EXPECT_TRUE(view.hasFocus());
    const auto all = SeenIn(view);
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Minus);
    EXPECT_EQ(SeenIn(view), all) << "there is no more to see";
    constexpr double twice = 0.8 * 0.8;
    // By how much of the visible range its middle moves, and the part that remains visible.
    const std::tuple<Qt::Key, Qt::KeyboardModifier, QPointF, QPointF> cases[] = {
        {Qt::Key_Left, Qt::NoModifier, {-0.1, 0}, {1, 1}},
        {Qt::Key_Right, Qt::NoModifier, {0.1, 0}, {1, 1}},
        {Qt::Key_Up, Qt::NoModifier, {0, 0.1}, {1, 1}},
        {Qt::Key_Down, Qt::NoModifier, {0, -0.1}, {1, 1}},
        {Qt::Key_Right, Qt::ShiftModifier, {0, 0}, {0.8, 1}},
        {Qt::Key_Left, Qt::ShiftModifier, {0, 0}, {1.25, 1}},
        {Qt::Key_Up, Qt::ShiftModifier, {0, 0}, {1, 0.8}},
        {Qt::Key_Down, Qt::ShiftModifier, {0, 0}, {1, 1.25}},
        {Qt::Key_PageDown, Qt::NoModifier, {0.28125, 0}, {1, 1}},  // up to the last reading
        {Qt::Key_PageUp, Qt::NoModifier, {-0.28125, 0}, {1, 1}},
    };
    const auto expectAxis = [](QCPRange now, QCPRange before, double move, double zoom) {
        EXPECT_NEAR(now.center(), before.center() + move * twice * before.size(), 1e-6);
        EXPECT_NEAR(now.size(), zoom * twice * before.size(), 1e-6);
    };
    for (const auto& [key, modifier, move, zoom] : cases) {
        SCOPED_TRACE(key);
        QTest::keyClick(&view, Qt::Key_Home);
        EXPECT_EQ(SeenIn(view), all);
        QTest::keyClick(&view, Qt::Key_Plus);
        QTest::keyClick(&view, Qt::Key_Plus);
        QTest::keyClick(&view, key, modifier);
        expectAxis(view.xAxis->range(), all.first, move.x(), zoom.x());
        expectAxis(view.yAxis->range(), all.second, move.y(), zoom.y());
    }
    for (int i = 0; i < 100; ++i) {
        QTest::keyClick(&view, Qt::Key_Plus);
    }
    EXPECT_NEAR(view.xAxis->range().size(), 4, 1e-6);
    EXPECT_NEAR(view.yAxis->range().size(), 4, 1e-6);
    Click(*form, "Command4");
    EXPECT_EQ(SeenIn(view), all);
}

TEST_F(PlotFormsTest, MouseMovesAndZooms) {
    PlotView& view = OpenPlot<PlotForm>(Noise(200, 12));
    const auto [readings, codes] = SeenIn(view);
    const auto pixels = [&view, middle = codes.center()](double reading, double code) {
        return QPointF(view.xAxis->coordToPixel(reading), view.yAxis->coordToPixel(middle + code))
            .toPoint();
    };
    const auto drag = [&view](Qt::MouseButton button, Qt::KeyboardModifier modifier, QPoint from,
                              QPoint to) {
        QTest::mousePress(&view, button, modifier, from);
        QMouseEvent move(QEvent::MouseMove, to, view.mapToGlobal(to), Qt::NoButton, button,
                         modifier);
        QApplication::sendEvent(&view, &move);
        QTest::mouseRelease(&view, button, modifier, to);
    };
    const QPoint middle = view.axisRect()->rect().center();
    QWheelEvent wheel(middle, view.mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &wheel);
    EXPECT_LT(view.xAxis->range().size(), readings.size() * 0.9);
    EXPECT_LT(view.yAxis->range().size(), codes.size() * 0.9);

    const auto expectSeen = [&view](double from, double to) {
        EXPECT_NEAR(view.xAxis->range().lower, from, 1);
        EXPECT_NEAR(view.xAxis->range().upper, to, 1);
        EXPECT_NEAR(view.yAxis->range().size(), 20, 1);
    };
    const std::pair<Qt::MouseButton, Qt::KeyboardModifier> rectangles[] = {
        {Qt::RightButton, Qt::NoModifier}, {Qt::LeftButton, Qt::ShiftModifier}};
    for (const auto& [button, modifier] : rectangles) {
        QTest::keyClick(&view, Qt::Key_Home);
        QApplication::processEvents();
        drag(button, modifier, pixels(80, 10), pixels(120, -10));
        expectSeen(80, 120);
        drag(button, modifier, middle, middle + QPoint(60, 0));  // too flat for a rectangle
        expectSeen(80, 120);
    }
    view.replot();
    drag(Qt::LeftButton, Qt::NoModifier, pixels(100, 0), pixels(90, 0));
    expectSeen(90, 130);
}

TEST_F(PlotFormsTest, CursorsShowReadingsAndTheirDifference) {
    std::vector<double> codes(100, 8388608);
    codes[11] = 8388610;
    codes[66] = 8388600;
    PlotView& view = OpenPlot<PlotForm>(BlockOf(codes, MainRange()));
    const auto click = [&view](double reading) {
        const QPoint at(qRound(view.xAxis->coordToPixel(reading)),
                        view.axisRect()->rect().center().y());
        QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, at);
    };
    click(12.3);
    QTest::keyClick(&view, Qt::Key_B);
    click(66.8);
    Expect(
        "CursorALabel: A: reading 12, 8388610 (800002), 4.7683716 nV | "
        "CursorBLabel: B: reading 67, 8388600 (7FFFF8), -19.073486 nV | "
        "DifferenceLabel: B - A: 55 readings, -10 LSB, -23.8419 nV");
    EXPECT_TRUE(Find<QLabel>(*form, "CursorBLabel").font().bold());
    EXPECT_FALSE(Find<QLabel>(*form, "CursorALabel").font().bold());

    QTest::keyClick(&view, Qt::Key_A);
    QTest::keyClick(&view, Qt::Key_Right, Qt::ControlModifier);
    Expect("CursorALabel: A: reading 13, 8388608 (800000), 0 V");
    QTest::keyClick(&view, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    Expect("CursorALabel: A: reading 3, 8388608 (800000), 0 V");
    QTest::keyClick(&view, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    Expect("DifferenceLabel: B - A: 66 readings, -8 LSB, -19.0735 nV");

    // The visible range follows a cursor that leaves it, and keeps its size.
    view.xAxis->setRange(40, 60);
    QTest::keyClick(&view, Qt::Key_B);
    QTest::keyClick(&view, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_NEAR(view.xAxis->range().upper, 69, 1e-6);
    EXPECT_NEAR(view.xAxis->range().size(), 20, 1e-6);
}

TEST_F(PlotFormsTest, SavesCommaSeparatedValues) {
    OpenPlot<HistogramForm>(BlockOf({7, 7}, MainRange()));
    SaveAs("Command2", folder.Path("bins"));
    const std::string bins = folder.Bytes("bins.csv");
    const std::size_t values = bins.find("first_code");
    EXPECT_TRUE(bins.starts_with("# Main ADC Histogram\n# 2 readings, input range "));
    EXPECT_NE(bins.find("\n# Conditions of the reading unknown\n# "), std::string::npos);
    EXPECT_EQ(bins.substr(values), "first_code,last_code,count,expected_count\n7,7,2,\n");
    OpenPlot<PlotForm>(AuxBlock());
    SaveAs("Command2", folder.Path("codes.txt"));
    EXPECT_NE(folder.Bytes("codes.txt")
                  .find("\nreading,code,volts\n1,32768,0\n2,32770,0.000152587890625\n3,"),
              std::string::npos);
    const std::string gone = folder.Path("no folder/codes.csv");
    SaveAs("Command2", gone);
    EXPECT_EQ(bench->messages.Take(),
              "Exclamation: Cannot write " + gone + ": " + Folder::ReasonOfNoFile(gone));
    EXPECT_TRUE(form->isVisible());
}

void ExpectExported(const QImage& picture) {
    EXPECT_GE(picture.width(), 1500);
    for (const QPoint corner : {QPoint(0, 0), QPoint(picture.width() - 1, picture.height() - 1)}) {
        EXPECT_EQ(picture.pixelColor(corner), QColor(Qt::white));
    }
    EXPECT_GT(CountOf(picture, blue), 900);
    EXPECT_GT(CountOf(picture, vermillion), 1000);
    EXPECT_GT(CountOf(picture.copy(0, 0, picture.width(), 60), QColor(0x20, 0x20, 0x20)), 100)
        << "a title";
}

/// White noise of 12 codes with 50 Hz in it, read 19.8 times a second.
AnalysedBlock NoiseWithMains(double rate = 19.8) {
    AnalysedBlock block = Noise(2048, 12);
    for (std::size_t i = 0; i < block.codes.size(); ++i) {
        block.codes[i] += 100 * std::sin(2 * std::numbers::pi * 50 / rate * static_cast<double>(i));
    }
    block.analysis = AnalyseNoise(block.codes, MainRange());
    block.reading = BlockConditions{.meanInterval = 1 / rate};
    return block;
}

void Choose(const Form& form, const char* box, int index) {
    Find<QComboBox>(form, box).setCurrentIndex(index);
}

TEST_F(PlotFormsTest, CodesHaveATimeAxisWhereTheRateIsKnown) {
    PlotView& view = OpenPlot<PlotForm>(AuxBlock());
    EXPECT_FALSE(view.xAxis2->visible());
    Expect("SummaryLabel: The rate of the readings is unknown: enter it for a time axis.");
    Box("RateEdit").setText(QStringLiteral("2"));
    view.replot();
    EXPECT_TRUE(view.xAxis2->visible());
    EXPECT_EQ(view.xAxis2->range(), view.xAxis->range());
    const qsizetype second = view.xAxis2->tickVectorLabels().indexOf(QStringLiteral("1.0"));
    EXPECT_EQ(view.xAxis2->tickVector().value(second), 3) << "the reading one second later";
    Expect(
        "CursorBLabel: B: reading 4, 1.500 s, 32770 (8002), 152.588 uV | "
        "DifferenceLabel: B - A: 2 readings, 1.000 s, 0 LSB, 0 V");
    Box("RateEdit").setText(QStringLiteral("no rate"));
    EXPECT_FALSE(view.xAxis2->visible());
}

TEST_F(PlotFormsTest, SpectrumMarksTheMainsAndIntegrates) {
    OpenPlot<PlotForm>(NoiseWithMains());
    Choose(*form, "ViewBox", 1);
    auto& view = Find<PlotView>(*form, "SpectrumPlot");
    EXPECT_TRUE(view.isVisible());
    EXPECT_EQ(Box("RateEdit").text(), QStringLiteral("19.8"));
    Expect(
        "HeadingLabel: Main ADC Spectrum | "
        "SummaryLabel: 15 segments of 256 readings, every 0.07734 Hz; "
        "mains of 50 Hz at 9.400 Hz, 60 Hz at 0.6000 Hz");
    // The frequencies around the peak have the amplitude's root mean square.
    view.xAxis->setRange(8, 10);
    for (const Qt::Key cursor : {Qt::Key_A, Qt::Key_B}) {
        QTest::keyClick(&view, cursor);
        const int pixel = qRound(view.xAxis->coordToPixel(cursor == Qt::Key_A ? 9.13 : 9.67));
        QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier,
                          {pixel, view.axisRect()->center().y()});
    }
    const std::string noise = TextOf(*form, "DifferenceLabel");
    EXPECT_NEAR(std::stod(noise.substr(noise.find(": ") + 2)) / 2.384, 100 / std::sqrt(2), 1);
    EXPECT_NE(noise.find(" LSB, from 9.127 Hz to 9.668 Hz"), std::string::npos) << noise;
    QTest::keyClick(&view, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_NE(TextOf(*form, "CursorBLabel").find("B: 9.591 Hz, "), std::string::npos);
    // The same tick in volts and in LSB of 2.384 nV.
    view.replot();
    EXPECT_TRUE(view.yAxis->tickVectorLabels().contains(QStringLiteral("100 nV")));
    const qsizetype ten = view.yAxis2->tickVectorLabels().indexOf(QStringLiteral("10"));
    EXPECT_NEAR(view.yAxis2->tickVector().value(ten), 10 * MainRange().lsbVolts, 1e-15);
    Choose(*form, "SegmentBox", 0);
    Choose(*form, "TrendBox", 1);
    EXPECT_EQ(view.graph(0)->dataCount(), 4);
    SaveAs("Command2", folder.Path("hertz.csv"));
    EXPECT_NE(
        folder.Bytes("hertz.csv").find("frequency_hz,density_v_per_rthz,density_lsb_per_rthz\n0,"),
        std::string::npos);
    Box("RateEdit").clear();
    EXPECT_EQ(view.graph(0)->dataMainKey(3), 0.5);
    EXPECT_EQ(view.xAxis->label(), QStringLiteral("Frequency (parts of the rate)"));
    SaveAs("Command2", folder.Path("parts.csv"));
    EXPECT_NE(folder.Bytes("parts.csv").find("cycles_per_reading,density_v,density_lsb"),
              std::string::npos);
}

TEST_F(PlotFormsTest, StabilityShowsConfidenceAndWhiteNoise) {
    OpenPlot<PlotForm>(NoiseWithMains(20));
    Choose(*form, "ViewBox", 2);
    auto& view = Find<PlotView>(*form, "StabilityPlot");
    EXPECT_EQ(LegendOf(view), "Allan deviation, White noise: 1 / √time, 95 % confidence");
    EXPECT_EQ(view.graph(0)->dataCount(), 11);
    const QCPGraph* const white = view.graph(1);
    EXPECT_NEAR(white->dataMainValue(0) / white->dataMainValue(1), 32, 1e-9);
    EXPECT_EQ(white->dataMainKey(1), 1024 / 20.0);
    QTest::keyClick(&view, Qt::Key_B);
    QTest::keyClick(&view, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(TextOf(*form, "CursorBLabel").rfind("B: 25.60 s (512 readings): ", 0), 0);
    EXPECT_NE(TextOf(*form, "DifferenceLabel")
                  .find("512.0 times the time; of white noise it is "
                        "0.04419"),
              std::string::npos);
    // By keys: logarithmic axes zoom about their middle, evenly.
    const auto [times, deviations] = SeenIn(view);
    const auto decades = [](const QCPRange& range) {
        return std::log10(range.upper / range.lower);
    };
    QTest::keyClick(&view, Qt::Key_Plus);
    EXPECT_NEAR(decades(view.xAxis->range()), 0.8 * decades(times), 1e-9);
    EXPECT_NEAR(view.xAxis->range().lower * view.xAxis->range().upper, times.lower * times.upper,
                1e-9);
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_NEAR(std::log10(view.xAxis->range().upper / times.upper), -0.02 * decades(times), 1e-9);
    QTest::keyClick(&view, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_LT(view.xAxis->range().lower, 1 / 20.0) << "follows the cursor to the first point";
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_EQ(SeenIn(view), std::pair(times, deviations));
    SaveAs("Command1", folder.Path("stability.png"));
    ExpectExported(QImage(QString::fromStdString(folder.Path("stability.png"))));
    Choose(*form, "FactorsBox", 2);
    EXPECT_EQ(view.graph(0)->dataCount(), 1024);
    SaveAs("Command2", folder.Path("taus.csv"));
    EXPECT_NE(folder.Bytes("taus.csv").find("tau_s,deviation_v,low_v,high_v,deviation_lsb\n0.05,"),
              std::string::npos);
}

TEST_F(PlotFormsTest, EqualCodesHaveNeitherSpectrumNorStability) {
    OpenPlot<PlotForm>(BlockOf(std::vector<double>(20, 8388608), MainRange()));
    for (const int view : {1, 2}) {
        Choose(*form, "ViewBox", view);
        EXPECT_EQ(TextOf(*form, "SummaryLabel").rfind("The codes do not vary", 0), 0);
        QTest::keyClick(&Find<PlotView>(*form, view == 1 ? "SpectrumPlot" : "StabilityPlot"),
                        Qt::Key_Left, Qt::ControlModifier);
        Expect("CursorALabel: | CursorBLabel: | DifferenceLabel:");
        Click(*form, "Command3");
    }
}

/// Light on black, as long as the returned guard lives.
auto DarkTheme() {
    const auto use = [](const QPalette& palette) {
        QApplication::setPalette(palette);
        QApplication::processEvents();
    };
    auto restore = qScopeGuard([use, before = QApplication::palette()] { use(before); });
    use(QPalette(QColor(0x30, 0x30, 0x30)));
    return restore;
}

TEST_F(PlotFormsTest, FollowsTheThemeButCopiesAPictureDarkOnWhite) {
    PlotView& view = OpenPlot<PlotForm>(Noise(5000, 12));
    // The colours of texts, of the codes and of their mean.
    const auto colours = [&view] {
        const QColor reference = view.plottable(view.graphCount() - 1)->pen().color();
        return std::vector{view.legend->textColor(), view.plottable(0)->pen().color(), reference};
    };
    const std::vector<QColor> light{QApplication::palette().color(QPalette::Text), blue,
                                    vermillion};
    EXPECT_EQ(colours(), light);
    {
        const auto theme = DarkTheme();
        EXPECT_EQ(colours(),
                  (std::vector<QColor>{Qt::white, {0x56, 0xB4, 0xE9}, {0xE6, 0x9F, 0x00}}));
        const QImage before = view.grab().toImage();
        EXPECT_GT(CountOf(before, Qt::black), view.width() * view.height() / 4);
        Click(*form, "Command3");
        ExpectExported(QApplication::clipboard()->image());
        EXPECT_EQ(view.grab().toImage(), before) << "the form is as it was";
    }
    EXPECT_EQ(colours(), light);
}

TEST_F(PlotFormsTest, SavesPicturesOfBothKinds) {
    OpenPlot<HistogramForm>(Noise(200, 12));
    SaveAs("Command1", folder.Path("histogram"));
    ExpectExported(QImage(QString::fromStdString(folder.Path("histogram.png"))));
    OpenPlot<PlotForm>(Noise(5000, 12));
    SaveAs("Command1", folder.Path("plot.png"), 1);
    ExpectExported(QImage(QString::fromStdString(folder.Path("plot.png"))));
    SaveAs("Command1", folder.Path("plot.1"), 1);
    SaveAs("Command1", folder.Path("named.pdf"));
    for (const char* name : {"plot.1", "named.pdf"}) {
        EXPECT_TRUE(folder.Bytes(name).starts_with("%PDF-")) << name;
        EXPECT_GT(folder.Bytes(name).size(), 10000U) << name;
    }
}

}  // namespace
}  // namespace vx3260::test
