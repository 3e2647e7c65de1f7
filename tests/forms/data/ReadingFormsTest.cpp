// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "analysis/NoiseStatistics.h"
#include "analysis/WindowTexts.h"
#include "forms/data/ReadAuxDataForm.h"
#include "forms/data/ReadDualDataForm.h"
#include "forms/data/ReadMainDataForm.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

const std::string prompt = "Press any key to stop reading";

/// What the tests expect to differ between the twins.
struct Twin {
    Converter converter;
    const char* name;
    double code;  ///< of the input that is connected at start
};

const Twin twins[] = {
    {Converter::Main, "Main", mainCodeAtStart},
    {Converter::Aux, "Aux", auxCodeAtStart},
};

class ReadingFormTest : public FormTest {
  protected:
    int HexIn(const char* box) { return Box(box).text().toInt(nullptr, 16); }
    void Type(const char* box, const char* text) { Box(box).setText(QString::fromUtf8(text)); }
    void PressAKey() { QTest::keyClick(&Box("Text1"), Qt::Key_Space); }

    StripChart& Chart(const char* name) {
        auto& chart = Find<StripChart>(*form, name);
        chart.Draw();
        return chart;
    }

    /// The codes that a chart draws, without the breaks between readings.
    std::vector<double> PointsOn(const char* chart) {
        std::vector<double> codes;
        for (const QCPGraphData& point : *Find<PlotView>(Chart(chart), "Plot").graph(0)->data()) {
            if (!std::isnan(point.value)) {
                codes.push_back(point.value);
            }
        }
        return codes;
    }
    int BreaksIn(const char* chart) {
        const auto points = Find<PlotView>(Chart(chart), "Plot").graph(0)->data();
        return static_cast<int>(std::count_if(points->begin(), points->end(),
                                              [](const auto& p) { return std::isnan(p.value); }));
    }

    /// Expects a chart of these codes and labels with their figures.
    void ExpectChartOf(const char* name, Converter converter, const std::vector<double>& codes) {
        EXPECT_EQ(PointsOn(name), codes);
        WindowTexts texts;
        if (!codes.empty()) {
            const ExactStatistics exact = ComputeExactStatistics(codes);
            const auto [smallest, largest] = std::minmax_element(codes.begin(), codes.end());
            const ConversionConditions conditions = ConditionsOf(
                converter, bench->state.ReferenceVoltage,
                static_cast<std::int32_t>(
                    Contents(converter == Converter::Main ? mainControlAt : auxControlAt)));
            texts = vx3260::TextsOf(
                {codes.size(), exact.mean, exact.sigma, static_cast<std::int32_t>(*smallest),
                 static_cast<std::int32_t>(*largest)},
                conditions);
        }
        const auto shown = [&](const char* label) { return TextOf(Chart(name), label); };
        EXPECT_EQ(shown("MeanLabel") + shown("MeanVoltsLabel"), texts.mean + texts.meanVolts);
        EXPECT_EQ(shown("SigmaLabel") + shown("SigmaVoltsLabel"), texts.sigma + texts.sigmaVolts);
        EXPECT_EQ(shown("PeakToPeakLabel") + shown("PeakToPeakVoltsLabel"),
                  texts.peakToPeak + texts.peakToPeakVolts);
    }

    /// Runs `act` from the event loop once a reading runs.
    void DuringReading(const std::function<void()>& act) { QTimer::singleShot(0, form.get(), act); }
};

/// The twins ReadMainDataForm and ReadAuxDataForm.
class ReadDataFormTest : public ReadingFormTest, public testing::WithParamInterface<Twin> {
  protected:
    void Open() {
        if (GetParam().converter == Converter::Main) {
            FormTest::Open<ReadMainDataForm>();
        } else {
            FormTest::Open<ReadAuxDataForm>();
        }
    }
    CodeBlock Block() { return bench->state.BlockOf(GetParam().converter); }
};

INSTANTIATE_TEST_SUITE_P(Twins, ReadDataFormTest, testing::ValuesIn(twins),
                         [](const auto& twin) { return twin.param.name; });

TEST_P(ReadDataFormTest, IsCentredAndHasNoDefaultButton) {
    Open();
    for (const QPushButton* button : form->findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->autoDefault()) << button->objectName().toStdString();
    }
    const QPoint off = form->frameGeometry().center() - form->screen()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 6);  // a frame's width
}

TEST_P(ReadDataFormTest, ReadsABlockByButtonAndByEnter) {
    Open();
    EXPECT_EQ(ClickOn("Command1"), "");
    EXPECT_EQ(Block().count, 200);
    EXPECT_EQ(Block().codes.size(), 200U);
    EXPECT_NEAR(Block().codes[199], GetParam().code, 99);
    Expect("ReadingProgress: 200 of 200 | ReadingLabel:");

    Box("NumCodesText").setFocus();
    EXPECT_EQ(Enter("NumCodesText", "12"), "");
    EXPECT_EQ(Block().count, 12);
    EXPECT_EQ(Block().codes.size(), 12U);
    EXPECT_TRUE(Box("NumCodesText").hasFocus());
    EXPECT_TRUE(form->isVisible());
}

TEST_P(ReadDataFormTest, StopsABlockWithAnyKey) {
    Open();
    Type("NumCodesText", "5000");
    // Keys that would do something else: an access key, Escape, Enter.
    const std::pair<Qt::Key, Qt::KeyboardModifier> cases[] = {{Qt::Key_A, Qt::AltModifier},
                                                              {Qt::Key_Escape, Qt::NoModifier},
                                                              {Qt::Key_Return, Qt::NoModifier}};
    for (const auto& [key, modifier] : cases) {
        Block().count = 0;
        std::int16_t atKey = 0;
        DuringReading([&, pressed = key, held = modifier] {
            EXPECT_TRUE(Box("Text1").hasFocus());
            QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
            QCoreApplication::sendEvent(&Box("Text1"), &repeated);
            QTest::keyClick(&Box("Text1"), Qt::Key_Shift);
            for (const char* button : {"Command1", "Command2", "Command3"}) {
                EXPECT_EQ(ClickOn(button), "");
            }
            EXPECT_EQ(TextOf(*form, "ReadingLabel"), prompt);
            atKey = Block().count;
            QTest::keyClick(&Box("Text1"), pressed, held);
            EXPECT_EQ(TextOf(*form, "ReadingLabel"), "");
        });
        EXPECT_EQ(ClickOn("Command1"), "Exclamation: User Interruption of Reading") << key;
        EXPECT_EQ(Block().count, atKey);
        EXPECT_EQ(Block().codes.size(), 5000U);
        EXPECT_TRUE(form->isVisible());
        Expect("Text1:");
    }
}

TEST_P(ReadDataFormTest, ClosesOnceTheReadingHasStopped) {
    for (const char* button : {"Command1", "Command2"}) {
        Open();
        Type("NumCodesText", "5000");
        Type("DelayText", "60000");
        DuringReading([this] {
            ClickOn("Command4");
            EXPECT_TRUE(form->isVisible());
        });
        ClickOn(button);
        EXPECT_FALSE(form->isVisible());
    }
    EXPECT_NE(TextOf(*form, "CurrentCodeText"), "");
}

TEST_P(ReadDataFormTest, ShowsCodesInHexadecimalUntilAKeyIsPressed) {
    Open();
    Type("DelayText", "-5");
    DuringReading([this] { PressAKey(); });
    EXPECT_EQ(ClickOn("Command2"), "");
    EXPECT_NEAR(HexIn("CurrentCodeText"), GetParam().code, 99);
    Type("DelayText", "60");
    int codes = 0;
    QObject::connect(&Box("CurrentCodeText"), &QLineEdit::textChanged, form.get(), [&] {
        if (++codes == 3) {
            PressAKey();
        }
    });
    QElapsedTimer elapsed;
    elapsed.start();
    ClickOn("Command2");
    EXPECT_EQ(codes, 3);
    EXPECT_GE(elapsed.elapsed(), 2 * 60);
}

TEST_P(ReadDataFormTest, ReportsThatNoResultBecomesReady) {
    UseBoardWith("no-data-ready");
    Open();
    bench->messages.atBox = [this] { EXPECT_NE(bench->messages.shown.back().detail, ""); };
    for (const char* button : {"Command1", "Command2"}) {
        EXPECT_EQ(ClickOn(button), "Plain: Error Reading Data from VX3260");
    }
    EXPECT_EQ(Block().count, 1);
    EXPECT_EQ(Block().codes.at(0), -2147483648.0);
}

TEST_P(ReadDataFormTest, ChartIsFoldedAwayUntilAskedFor) {
    Open();
    const auto visible = [this](const char* name) { return Find(*form, name).isVisible(); };
    const QSize folded = form->size();
    EXPECT_FALSE(visible("Chart") || visible("SpanBox") || visible("PauseButton"));
    ClickOn("ShowCheck");
    EXPECT_TRUE(visible("Chart") && visible("SpanBox") && visible("PauseButton"));
    EXPECT_GT(form->height(), folded.height());
    EXPECT_TRUE(form->screen()->availableGeometry().contains(form->geometry()));
    ClickOn("ShowCheck");
    EXPECT_FALSE(visible("Chart") || visible("SpanBox") || visible("PauseButton"));
    EXPECT_EQ(form->size(), folded);
}

TEST_P(ReadDataFormTest, ChartsTheCodesOfABlockAndTheirFigures) {
    Open();
    Click(*form, "ShowCheck");
    Type("NumCodesText", "100");  // 5 seconds
    EXPECT_EQ(ClickOn("Command1"), "");
    const std::vector<double> first(Block().codes);
    ExpectChartOf("Chart", GetParam().converter, first);
    Type("NumCodesText", "20");
    ClickOn("Command1");
    std::vector<double> both(first);
    both.insert(both.end(), Block().codes.begin(), Block().codes.end());
    ExpectChartOf("Chart", GetParam().converter, both);
    EXPECT_EQ(BreaksIn("Chart"), 1) << "nothing was read between the two blocks";
    Type("RefText", "5");
    ExpectChartOf("Chart", GetParam().converter, both);
    Click(*form, "ClearButton");
    ExpectChartOf("Chart", GetParam().converter, {});
    EXPECT_EQ(Block().codes.size(), 20U);
}

TEST_P(ReadDataFormTest, PauseKeepsTheChartWhileReadingGoesOn) {
    Open();
    Click(*form, "ShowCheck");
    ClickOn("Command1");
    Find<QComboBox>(*form, "SpanBox").setCurrentIndex(2);
    const std::vector<double> first(Block().codes);
    ExpectChartOf("Chart", GetParam().converter, first);
    Click(*form, "PauseButton");
    ClickOn("Command1");
    ExpectChartOf("Chart", GetParam().converter, first);
    Click(*form, "PauseButton");
    std::vector<double> both(first);
    both.insert(both.end(), Block().codes.begin(), Block().codes.end());
    ExpectChartOf("Chart", GetParam().converter, both);
}

TEST_P(ReadDataFormTest, ChartCostsNoAccesses) {
    std::vector<std::chrono::nanoseconds> ends;
    for (const bool chart : {false, true}) {
        UseBoardWith("");
        Open();
        Find<QAbstractButton>(*form, "ShowCheck").setChecked(chart);
        ClickOn("Command1");
        ends.push_back(bench->port->Now());
    }
    EXPECT_EQ(ends[0], ends[1]) << "each access takes time by the board's clock";
}

using ReadAuxDataFormTest = ReadingFormTest;

TEST_F(ReadAuxDataFormTest, ShowsTheTemperatureOfItsSensor) {
    constexpr std::uint32_t offset = 131;  // 0.2 % of full scale, taken out
    Preset(auxZeroScaleAt, 0x8000 + offset);
    Open<ReadAuxDataForm>();
    EXPECT_TRUE(Find(*form, "TemperatureFrame").isVisible());
    Expect("SlopeText: 1.000 | TemperatureText:");
    const auto temperature = [this] { return Box("TemperatureText").text().toDouble(); };
    ClickOn("Command1");
    EXPECT_EQ(Contents(statusAt) & 0xC0U, 0U) << "the main result is read alongside";
    const double kelvin = 298.15 * 0.996;  // the gain error
    EXPECT_NEAR(temperature(), kelvin - 273.15, 0.1);
    Type("SlopeText", "1.100");
    EXPECT_NEAR(temperature(), kelvin / 1.1 - 273.15, 0.1);
    Type("SlopeText", "0");
    EXPECT_NE(Box("SlopeText").accessibleDescription(), QString());
    EXPECT_TRUE(Box("SlopeText").toolTip().contains(QStringLiteral("stays in use")));
    EXPECT_NEAR(temperature(), kelvin / 1.1 - 273.15, 0.1);
    Type("RefText", "5");
    EXPECT_NEAR(temperature(), 2 * kelvin / 1.1 - 273.15, 0.2);
    Open<ReadAuxDataForm>();
    Expect("SlopeText: 1.100");
    bench->state.ReferenceVoltage = 2.5F;
    Type("SlopeText", "");
    Type("SlopeText", "1");
    EXPECT_TRUE(Box("SlopeText").toolTip().startsWith(QStringLiteral("Millivolts per kelvin")));
    DuringReading([this] { PressAKey(); });
    ClickOn("Command2");
    EXPECT_NEAR(temperature(), kelvin - 273.15, 0.5);

    Preset(modeAt, 1);  // no result comes any more
    ClickOn("Command1");
    EXPECT_EQ(TextOf(*form, "TemperatureText"), "") << "of a block that is gone";

    Preset(auxControlAt, 0x89);
    Open<ReadAuxDataForm>();
    EXPECT_FALSE(Find(*form, "TemperatureFrame").isVisible());
}

using ReadDualDataFormTest = ReadingFormTest;

TEST_F(ReadDualDataFormTest, ShowsBothCodesInHexadecimalAndInVolts) {
    Open<ReadDualDataForm>();
    Box("DelayText").setFocus();
    DuringReading([this] {
        EXPECT_EQ(TextOf(*form, "ReadingLabel"), prompt);
        QTest::keyClick(&Box("Text1"), Qt::Key_A, Qt::AltModifier);
    });
    QTest::keyClick(&Box("DelayText"), Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(bench->messages.Take(), "");
    EXPECT_NEAR(HexIn("MainCodeText"), mainCodeAtStart, 99);
    EXPECT_NEAR(HexIn("AuxCodeText"), auxCodeAtStart, 99);
    const std::string mainVolts = TextOf(*form, "MainVoltsText");
    const std::string auxVolts = TextOf(*form, "AuxVoltsText");
    EXPECT_EQ(mainVolts.size(), std::string("0.1234567 V").size());
    EXPECT_EQ(auxVolts.size(), std::string("0.12345 V").size());
    EXPECT_NEAR(std::stod(mainVolts), 0.01 * 0.996 + 0.002 * 2.56, 3e-5);
    EXPECT_NEAR(std::stod(auxVolts), 0.29815 * 0.996 + 0.002 * 2.5, 1e-3);
}

TEST_F(ReadDualDataFormTest, ChartsTheCodesOfBothConverters) {
    Open<ReadDualDataForm>();
    EXPECT_TRUE(Find(*form, "MainChart").isVisible() && Find(*form, "AuxChart").isVisible());
    Type("DelayText", "0");
    std::vector<double> mainCodes;
    std::vector<double> auxCodes;
    QObject::connect(&Box("AuxVoltsText"), &QLineEdit::textChanged, form.get(), [&] {
        mainCodes.push_back(HexIn("MainCodeText"));
        auxCodes.push_back(HexIn("AuxCodeText"));
        if (auxCodes.size() == 50) {
            PressAKey();
        }
    });
    EXPECT_EQ(ClickOn("Command2"), "");
    const auto atTextChanges = [this](const char* chart) {
        // A code whose voltage text is that of the one before is on the chart, and not counted.
        std::vector<double> points = PointsOn(chart);
        EXPECT_GE(points.size(), 50U);
        return points;
    };
    const std::vector<double> mainPoints = atTextChanges("MainChart");
    const std::vector<double> auxPoints = atTextChanges("AuxChart");
    EXPECT_EQ(mainPoints.back(), mainCodes.back());
    EXPECT_EQ(auxPoints.back(), auxCodes.back());
    ExpectChartOf("MainChart", Converter::Main, mainPoints);
    ExpectChartOf("AuxChart", Converter::Aux, auxPoints);
}

}  // namespace
}  // namespace vx3260::test
