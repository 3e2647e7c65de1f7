#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>
#include <cmath>
#include <random>

#include "analysis/HistogramForm.h"
#include "analysis/PlotForm.h"
#include "support/Folder.h"
#include "support/Forms.h"
#include "support/Pictures.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

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

PlotView& ViewOf(const QWidget& form) {
    return Find<PlotView>(form, "Plot");
}

struct Ranges {
    QCPRange x;
    QCPRange y;

    explicit Ranges(const PlotView& view) : x(view.xAxis->range()), y(view.yAxis->range()) {}
    bool operator==(const Ranges&) const = default;
};

std::vector<std::string> LegendOf(const PlotView& view) {
    std::vector<std::string> names;
    for (int i = 0; i < view.legend->itemCount(); ++i) {
        names.push_back(qobject_cast<QCPPlottableLegendItem*>(view.legend->item(i))
                            ->plottable()
                            ->name()
                            .toStdString());
    }
    return names;
}

/// Pixels of nearly that colour.
int CountOf(const QImage& picture, const QColor& colour) {
    int count = 0;
    constexpr int close = 24;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            count += std::abs(pixel.red() - colour.red()) < close &&
                             std::abs(pixel.green() - colour.green()) < close &&
                             std::abs(pixel.blue() - colour.blue()) < close
                         ? 1
                         : 0;
        }
    }
    return count;
}

const QColor blue(0x00, 0x72, 0xB2);
const QColor vermillion(0xD5, 0x5E, 0x00);

class PlotFormsTest : public testing::Test {
  protected:
    template <typename Opened>
    Opened& Open(AnalysedBlock analysed) {
        block = std::move(analysed);
        form = std::make_unique<Opened>(*bench.services, block);
        form->show();
        form->activateWindow();
        QApplication::processEvents();
        return static_cast<Opened&>(*form);
    }

    /// Clicks a button that asks for a file, and answers.
    void SaveAs(const char* button, const std::string& path, const char* filter = nullptr) {
        WhileModal([&] { Find<QPushButton>(*form, button).click(); },
                   [&](QDialog& asked) {
                       auto& dialog = dynamic_cast<QFileDialog&>(asked);
                       if (filter != nullptr) {
                           const QString chosen =
                               dialog.nameFilters().filter(QString::fromLatin1(filter))[0];
                           dialog.selectNameFilter(chosen);
                           emit dialog.filterSelected(chosen);
                       }
                       dialog.selectFile(QString::fromStdString(path));
                       asked.accept();
                   });
    }

    SimulatedBench bench;
    AnalysedBlock block;
    std::unique_ptr<Form> form;
    const Folder folder;
};

TEST_F(PlotFormsTest, HistogramTellsItsFigures) {
    const auto& histogram = Open<HistogramForm>(AuxBlock());
    EXPECT_EQ(histogram.windowTitle(), QStringLiteral("VX3260 Evaluation Software - Histogram"));
    ExpectTexts(histogram, {{"HeadingLabel", "Aux ADC Histogram"},
                            {"BadgeLabel", "Simulated board"},
                            {"CodesLabel", "5"},
                            {"RangeLabel", "± REFIN2"},
                            {"LSBLabel", "76.2939 uV"},
                            {"MeanLabelLSB", "32770.000"},
                            {"MeanLabel", "152.588 uV"},
                            {"SigmaLabelLSB", "1.41421"},
                            {"SigmaLabel", "107.896 uV"},
                            {"BinLabel", "1 code"},
                            {"MaxLabel", "32772 (8004)"},
                            {"MinLabel", "32768 (8000)"},
                            {"SpanLabel", "4 codes"},
                            {"Command1", "&Save Picture..."},
                            {"Command2", "Save &CSV..."},
                            {"Command3", "C&opy Picture"},
                            {"Command4", "S&how All"},
                            {"Command5", "B&ack"}});
    EXPECT_EQ(
        LegendOf(ViewOf(histogram)),
        (std::vector<std::string>{"Readings per code", "Normal curve of mean and sigma", "Mean"}));
    TakePicture(*form, "HistogramForm-aux");
    QTest::keyClick(&ViewOf(histogram), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(PlotFormsTest, HistogramDrawsBinsAndCurve) {
    const struct {
        AnalysedBlock block;
        const char* binWidth;
        const char* legend;
        const char* axis;
    } cases[] = {
        {Noise(5000, 12), "1 code", "Readings per code", "Readings per code"},
        {Noise(2000, 250), "20 codes", "Readings per bin of 20 codes", "Readings per bin"},
        {Noise(10, 2), "1 code", "Readings per code", "Readings per code"},
    };
    for (const auto& c : cases) {
        PlotView& view = ViewOf(Open<HistogramForm>(c.block));
        ExpectTexts(*form, {{"BinLabel", c.binWidth}});
        EXPECT_EQ(LegendOf(view).front(), c.legend);
        EXPECT_EQ(view.yAxis->label(), QString::fromLatin1(c.axis));
        const auto* const bars = qobject_cast<QCPBars*>(view.plottable(0));
        double readings = 0;
        for (const QCPBarsData& bar : *bars->data()) {
            readings += bar.value;
        }
        EXPECT_EQ(readings, static_cast<double>(block.codes.size()));
        bool found = false;
        const QCPRange top = view.graph(0)->getValueRange(found);
        EXPECT_NEAR(top.upper,
                    NormalCount(block.analysis.exact.mean, block.analysis.exact, block.codes.size(),
                                static_cast<std::int64_t>(bars->width())),
                    1e-6);
    }
}

TEST_F(PlotFormsTest, EqualCodesHaveNoCurve) {
    const AnalysedBlock still = BlockOf(std::vector<double>(20, 8388608), MainRange());
    const PlotView& histogram = ViewOf(Open<HistogramForm>(still));
    EXPECT_EQ(LegendOf(histogram), (std::vector<std::string>{"Readings per code", "Mean"}));
    EXPECT_EQ(histogram.xAxis->range(), QCPRange(8388603, 8388613));
    ExpectTexts(*form, {{"SigmaLabelLSB", "0"}, {"MeanLabel", "0 V"}, {"SpanLabel", "0 codes"}});
    TakePicture(*form, "HistogramForm-equal");

    const PlotView& plot = ViewOf(Open<PlotForm>(still));
    EXPECT_EQ(LegendOf(plot), (std::vector<std::string>{"Code", "Mean"}));
    EXPECT_EQ(plot.yAxis->range(), QCPRange(8388603, 8388613));
    TakePicture(*form, "PlotForm-equal");
    EXPECT_GT(CountOf(form->grab().toImage(), blue), 20 * 10) << "dots over the line of the mean";
}

TEST_F(PlotFormsTest, PlotShowsCodesMeanAndSigma) {
    const PlotView& view = ViewOf(Open<PlotForm>(AuxBlock()));
    ExpectTexts(*form, {{"HeadingLabel", "Aux ADC Codes"}, {"BadgeLabel", "Simulated board"}});
    EXPECT_EQ(form->windowTitle(), QStringLiteral("VX3260 Evaluation Software - Plot of Codes"));
    EXPECT_EQ(LegendOf(view), (std::vector<std::string>{"Code", "Mean", "Mean ± 1 sigma"}));
    std::map<double, Qt::PenStyle> levels;
    for (int i = 1; i < view.graphCount(); ++i) {
        levels[view.graph(i)->dataMainValue(0)] = view.graph(i)->pen().style();
        EXPECT_EQ(view.graph(i)->dataMainValue(1), view.graph(i)->dataMainValue(0));
    }
    const double sigma = std::sqrt(2.0);
    EXPECT_EQ(levels, (std::map<double, Qt::PenStyle>{{32770 - sigma, Qt::DashLine},
                                                      {32770, Qt::SolidLine},
                                                      {32770 + sigma, Qt::DashLine}}));
    EXPECT_EQ(view.graph(0)->dataMainKey(0), 1);
    EXPECT_EQ(view.graph(0)->dataMainValue(2), 32772);
    Find<QPushButton>(*form, "Command5").click();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(PlotFormsTest, VoltsKeepInStepWithCodes) {
    PlotView& view = ViewOf(Open<PlotForm>(Noise(5000, 12)));
    std::set<std::string> units;
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
            EXPECT_EQ(tick, std::nearbyint(tick)) << "codes are whole";
        }
    }
}

TEST_F(PlotFormsTest, KeysMoveAndZoom) {
    PlotView& view = ViewOf(Open<PlotForm>(Noise(200, 12)));
    EXPECT_TRUE(view.hasFocus());
    const Ranges all(view);
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Minus);
    EXPECT_EQ(Ranges(view), all) << "there is no more to see";
    QTest::keyClick(&view, Qt::Key_Plus);
    QTest::keyClick(&view, Qt::Key_Plus);
    const Ranges zoomed(view);
    EXPECT_NEAR(zoomed.x.size(), all.x.size() * 0.64, 1e-6);
    EXPECT_NEAR(zoomed.y.size(), all.y.size() * 0.64, 1e-6);
    EXPECT_NEAR(zoomed.x.center(), all.x.center(), 1e-6);
    const struct {
        Qt::Key key;
        Qt::KeyboardModifier modifier;
        double x;  ///< how far the middle moves, in parts of what is seen
        double y;
        double width;  ///< of what was seen
        double height;
    } cases[] = {
        {Qt::Key_Left, Qt::NoModifier, -0.1, 0, 1, 1},
        {Qt::Key_Right, Qt::NoModifier, 0.1, 0, 1, 1},
        {Qt::Key_Up, Qt::NoModifier, 0, 0.1, 1, 1},
        {Qt::Key_Down, Qt::NoModifier, 0, -0.1, 1, 1},
        {Qt::Key_Right, Qt::ShiftModifier, 0, 0, 0.8, 1},
        {Qt::Key_Left, Qt::ShiftModifier, 0, 0, 1.25, 1},
        {Qt::Key_Up, Qt::ShiftModifier, 0, 0, 1, 0.8},
        {Qt::Key_Down, Qt::ShiftModifier, 0, 0, 1, 1.25},
        {Qt::Key_PageDown, Qt::NoModifier, 0.28125, 0, 1, 1},  // as far as the readings go
        {Qt::Key_PageUp, Qt::NoModifier, -0.28125, 0, 1, 1},
    };
    for (const auto& c : cases) {
        QTest::keyClick(&view, Qt::Key_Home);
        EXPECT_EQ(Ranges(view), all);
        QTest::keyClick(&view, Qt::Key_Plus);
        QTest::keyClick(&view, Qt::Key_Plus);
        QTest::keyClick(&view, c.key, c.modifier);
        const Ranges now(view);
        EXPECT_NEAR(now.x.center() - zoomed.x.center(), c.x * zoomed.x.size(), 1e-6) << c.key;
        EXPECT_NEAR(now.y.center() - zoomed.y.center(), c.y * zoomed.y.size(), 1e-6) << c.key;
        EXPECT_NEAR(now.x.size(), c.width * zoomed.x.size(), 1e-6) << c.key;
        EXPECT_NEAR(now.y.size(), c.height * zoomed.y.size(), 1e-6) << c.key;
    }
    for (int i = 0; i < 100; ++i) {
        QTest::keyClick(&view, Qt::Key_Plus);
    }
    EXPECT_NEAR(view.xAxis->range().size(), 4, 1e-6);
    EXPECT_NEAR(view.yAxis->range().size(), 4, 1e-6);
    Find<QPushButton>(*form, "Command4").click();
    EXPECT_EQ(Ranges(view), all);
}

TEST_F(PlotFormsTest, MouseMovesAndZooms) {
    PlotView& view = ViewOf(Open<PlotForm>(Noise(200, 12)));
    const Ranges all(view);
    const QPoint middle = view.axisRect()->rect().center();
    const auto pixels = [&view](double reading, double code) {
        return QPointF(view.xAxis->coordToPixel(reading), view.yAxis->coordToPixel(code)).toPoint();
    };
    const auto drag = [&view](Qt::MouseButton button, Qt::KeyboardModifier modifier, QPoint from,
                              QPoint to) {
        QTest::mousePress(&view, button, modifier, from);
        QMouseEvent move(QEvent::MouseMove, to, view.mapToGlobal(to), Qt::NoButton, button,
                         modifier);
        QApplication::sendEvent(&view, &move);
        QTest::mouseRelease(&view, button, modifier, to);
    };
    constexpr int notch = 120;
    QWheelEvent wheel(middle, view.mapToGlobal(middle), {}, {0, notch}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &wheel);
    EXPECT_LT(view.xAxis->range().size(), all.x.size() * 0.9);
    EXPECT_LT(view.yAxis->range().size(), all.y.size() * 0.9);

    const double code = all.y.center();
    const std::pair<Qt::MouseButton, Qt::KeyboardModifier> rectangles[] = {
        {Qt::RightButton, Qt::NoModifier}, {Qt::LeftButton, Qt::ShiftModifier}};
    for (const auto& [button, modifier] : rectangles) {
        QTest::keyClick(&view, Qt::Key_Home);
        QApplication::processEvents();
        drag(button, modifier, pixels(80, code + 10), pixels(120, code - 10));
        EXPECT_NEAR(view.xAxis->range().lower, 80, 1) << button;
        EXPECT_NEAR(view.xAxis->range().upper, 120, 1) << button;
        EXPECT_NEAR(view.yAxis->range().size(), 20, 1) << button;
        drag(button, modifier, middle, middle + QPoint(60, 0));
        EXPECT_NEAR(view.xAxis->range().size(), 40, 2) << "no rectangle to speak of";
    }
    view.replot();
    drag(Qt::LeftButton, Qt::NoModifier, pixels(100, code), pixels(90, code));
    EXPECT_NEAR(view.xAxis->range().lower, 90, 1);
    EXPECT_NEAR(view.xAxis->range().size(), 40, 1);
}

TEST_F(PlotFormsTest, CursorsTellReadingsAndTheirDifference) {
    std::vector<double> codes(100, 8388608);
    codes[11] = 8388610;
    codes[66] = 8388600;
    PlotView& view = ViewOf(Open<PlotForm>(BlockOf(codes, MainRange())));
    const auto click = [&view](double reading) {
        const QPoint at(qRound(view.xAxis->coordToPixel(reading)),
                        view.axisRect()->rect().center().y());
        QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, at);
    };
    click(12.3);
    QTest::keyClick(&view, Qt::Key_B);
    click(66.8);
    ExpectTexts(*form, {{"CursorALabel", "A: reading 12, 8388610 (800002), 4.7683716 nV"},
                        {"CursorBLabel", "B: reading 67, 8388600 (7FFFF8), -19.073486 nV"},
                        {"DifferenceLabel", "B - A: 55 readings, -10 codes, -23.8419 nV"}});
    EXPECT_TRUE(Find<QLabel>(*form, "CursorBLabel").font().bold());
    EXPECT_FALSE(Find<QLabel>(*form, "CursorALabel").font().bold());
    TakePicture(*form, "PlotForm-cursors");

    QTest::keyClick(&view, Qt::Key_A);
    QTest::keyClick(&view, Qt::Key_Right, Qt::ControlModifier);
    ExpectTexts(*form, {{"CursorALabel", "A: reading 13, 8388608 (800000), 0 V"}});
    QTest::keyClick(&view, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    ExpectTexts(*form, {{"CursorALabel", "A: reading 3, 8388608 (800000), 0 V"}});
    QTest::keyClick(&view, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    ExpectTexts(*form, {{"DifferenceLabel", "B - A: 66 readings, -8 codes, -19.0735 nV"}});

    // The plot follows a cursor out of what is seen, and no further.
    view.xAxis->setRange(40, 60);
    QTest::keyClick(&view, Qt::Key_B);
    QTest::keyClick(&view, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_NEAR(view.xAxis->range().upper, 69, 1e-6);
    EXPECT_NEAR(view.xAxis->range().size(), 20, 1e-6);
}

TEST_F(PlotFormsTest, DotsMarkReadingsThatAreFarApart) {
    PlotView& view = ViewOf(Open<PlotForm>(Noise(5000, 12)));
    EXPECT_EQ(view.graph(0)->scatterStyle().shape(), QCPScatterStyle::ssNone);
    view.xAxis->setRange(100, 130);
    view.replot();
    EXPECT_EQ(view.graph(0)->scatterStyle().shape(), QCPScatterStyle::ssDisc);
    TakePicture(*form, "PlotForm-zoomed");
}

TEST_F(PlotFormsTest, FitsOnItsScreen) {
    Open<HistogramForm>(AuxBlock());
    form->hide();
    form->resize(5000, 5000);
    form->show();
    EXPECT_TRUE(form->screen()->geometry().contains(form->geometry()));
}

TEST_F(PlotFormsTest, SavesCommaSeparatedValues) {
    Open<HistogramForm>(BlockOf({7, 7}, MainRange()));
    SaveAs("Command2", folder.Path("bins"));
    EXPECT_EQ(folder.Bytes("bins.csv"), "first_code,last_code,count,expected_count\n7,7,2,\n");
    Open<PlotForm>(AuxBlock());
    SaveAs("Command2", folder.Path("codes.txt"));
    EXPECT_TRUE(folder.Bytes("codes.txt").starts_with("reading,code,volts\n1,32768,0\n2,32770,"));
    SaveAs("Command2", folder.Path("no folder/codes.csv"));
    ASSERT_EQ(bench.messages.shown.size(), 1U);
    EXPECT_EQ(bench.messages.shown[0].text,
              "Cannot write " + folder.Path("no folder/codes.csv") + ": No such file or directory");
    EXPECT_EQ(bench.messages.shown[0].icon, MessageIcon::Exclamation);
    EXPECT_TRUE(form->isVisible());
}

TEST_F(PlotFormsTest, AsksOnceBeforeItReplacesAFile) {
    Open<HistogramForm>(AuxBlock());
    folder.Make("old.csv", "old");
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        int asked = 0;
        QTimer once;
        QObject::connect(&once, &QTimer::timeout, [&] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box != nullptr) {
                ++asked;
                box->button(answer)->click();
            }
        });
        once.start(0);
        SaveAs("Command2", folder.Path("old.csv"));
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(folder.Bytes("old.csv") == "old", answer == QMessageBox::No);
    }
}

void ExpectExported(const QImage& picture) {
    EXPECT_GE(picture.width(), 1500);
    for (const QPoint corner : {QPoint(0, 0), QPoint(picture.width() - 1, picture.height() - 1)}) {
        EXPECT_EQ(picture.pixelColor(corner), QColor(Qt::white));
    }
    EXPECT_GT(CountOf(picture, blue), 1000);
    EXPECT_GT(CountOf(picture, vermillion), 1000);
    EXPECT_GT(CountOf(picture.copy(0, 0, picture.width(), 60), QColor(0x20, 0x20, 0x20)), 100)
        << "a title";
}

class DarkTheme {
  public:
    DarkTheme() {
        QPalette dark(QColor(0x30, 0x30, 0x30));
        dark.setColor(QPalette::Base, background);
        dark.setColor(QPalette::Text, Qt::white);
        dark.setColor(QPalette::WindowText, Qt::white);
        QApplication::setPalette(dark);
        QApplication::processEvents();
    }
    ~DarkTheme() {
        QApplication::setPalette(before_);
        QApplication::processEvents();
    }
    DarkTheme(const DarkTheme&) = delete;
    DarkTheme& operator=(const DarkTheme&) = delete;

    static constexpr QColor background{0x1E, 0x1E, 0x1E};

  private:
    QPalette before_ = QApplication::palette();
};

TEST_F(PlotFormsTest, PicturesAreDarkOnWhiteInAnyTheme) {
    const DarkTheme theme;
    Open<HistogramForm>(Noise(200, 12));
    SaveAs("Command1", folder.Path("histogram"));
    const QImage histogram(QString::fromStdString(folder.Path("histogram.png")));
    ExpectExported(histogram);
    TakePicture(histogram, "HistogramForm-saved");

    PlotView& view = ViewOf(Open<PlotForm>(Noise(5000, 12)));
    const QImage before = view.grab().toImage();
    std::set<bool> sampling;
    const QObject watcher;
    QObject::connect(&view, &PlotView::afterLayout, &watcher,
                     [&] { sampling.insert(view.graph(0)->adaptiveSampling()); });
    Find<QPushButton>(*form, "Command3").click();
    const QImage copied = QApplication::clipboard()->image();
    ExpectExported(copied);
    TakePicture(copied, "PlotForm-copied");
    EXPECT_TRUE(sampling.contains(false)) << "every point is drawn";
    EXPECT_TRUE(view.graph(0)->adaptiveSampling());
    EXPECT_EQ(view.grab().toImage(), before) << "the form is as it was";

    SaveAs("Command1", folder.Path("plot.png"));
    EXPECT_EQ(QImage(QString::fromStdString(folder.Path("plot.png")))
                  .convertToFormat(QImage::Format_RGB32),
              copied.convertToFormat(QImage::Format_RGB32));
    SaveAs("Command1", folder.Path("plot"), "pdf");
    SaveAs("Command1", folder.Path("named.pdf"));
    for (const char* name : {"plot.pdf", "named.pdf"}) {
        EXPECT_TRUE(folder.Bytes(name).starts_with("%PDF-")) << name;
        EXPECT_GT(folder.Bytes(name).size(), 10000U) << name;
    }
}

/// Relative luminance as the Web Content Accessibility Guidelines define it.
double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
    const auto [less, more] = std::minmax({Luminance(one), Luminance(other)});
    return (more + 0.05) / (less + 0.05);
}

void ExpectReadable(PlotView& view, const QColor& background) {
    constexpr double forGraphics = 3;
    constexpr double forText = 4.5;
    EXPECT_GE(Contrast(view.xAxis->tickLabelColor(), background), forText);
    EXPECT_GE(Contrast(view.legend->textColor(), background), forText);
    const auto* const data = view.plottable(0);
    const auto* const reference = view.plottable(view.plottableCount() - 1);
    for (const QCPAbstractPlottable* drawn : {data, reference}) {
        EXPECT_GE(Contrast(drawn->pen().color(), background), forGraphics);
    }
    const QImage picture = view.grab().toImage();
    EXPECT_GT(CountOf(picture, background), picture.width() * picture.height() / 4);
    EXPECT_GT(CountOf(picture, data->pen().color()), 500);
    EXPECT_GT(CountOf(picture, view.xAxis->tickLabelColor()), 100);
}

TEST_F(PlotFormsTest, FollowsTheTheme) {
    PlotView& light = ViewOf(Open<PlotForm>(Noise(200, 12)));
    ExpectReadable(light, light.palette().color(QPalette::Base));
    TakePicture(*form, "PlotForm");
    {
        const DarkTheme theme;
        ExpectReadable(light, DarkTheme::background);
        TakePicture(*form, "PlotForm-dark");
    }
    ExpectReadable(light, light.palette().color(QPalette::Base));
    PlotView& histogram = ViewOf(Open<HistogramForm>(Noise(2000, 12)));
    TakePicture(*form, "HistogramForm");
    const DarkTheme theme;
    ExpectReadable(histogram, DarkTheme::background);
    TakePicture(*form, "HistogramForm-dark");
}

}  // namespace
}  // namespace vx3260
