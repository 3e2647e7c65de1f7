#include "forms/data/ReadAuxDataForm.h"
#include "forms/data/ReadDualDataForm.h"
#include "forms/data/ReadMainDataForm.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <algorithm>
#include <set>

#include "support/Forms.h"
#include "support/Pictures.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

const QString prompt = QStringLiteral("Press any key to stop reading");

/// What the tests expect to differ between the twins.
struct Twin {
    Converter converter;
    const char* name;
    unsigned controlAt;
    std::uint32_t disabled;  ///< its control register as at start, but for the enable bit
    double code;             ///< of the input that is connected at start
};

const Twin twins[] = {
    {Converter::Main, "Main", mainControlAt, 0x07, 8388608 * (1 + 0.01 * 0.996 / 2.56 + 0.002)},
    {Converter::Aux, "Aux", auxControlAt, 0x39, 65536 * (0.29815 * 0.996 / 2.5 + 0.002)},
};

/// One of the reading forms on a simulated bench.
class ReadingFormTest : public testing::Test {
  protected:
    template <typename Opened>
    void Open() {
        form.reset();
        form = std::make_unique<Opened>(*bench->services);
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    QLineEdit& Box(const char* name) { return Find<QLineEdit>(*form, name); }
    void Click(const char* name) { Find<QPushButton>(*form, name).click(); }
    void Type(const char* box, const char* text) { Box(box).setText(QString::fromUtf8(text)); }
    QString Prompt() { return Find<QLabel>(*form, "ReadingLabel").text(); }

    /// Runs `act` from the event loop once a reading runs; `count` codes into it.
    void DuringReading(std::int16_t count, const std::function<void()>& act) {
        auto* timer = new QTimer(form.get());
        QObject::connect(timer, &QTimer::timeout, form.get(), [this, timer, count, act] {
            if (count == 0 || CountOfBlock() >= count) {
                timer->stop();
                act();
            }
        });
        timer->start(0);
    }

    std::vector<std::string> Shown() { return bench->messages.Texts(); }

    virtual std::int16_t CountOfBlock() { return 0; }

    std::unique_ptr<SimulatedBench> bench = std::make_unique<SimulatedBench>();
    std::unique_ptr<ReadingForm> form;
};

/// The twins ReadMainDataForm and ReadAuxDataForm.
class ReadDataFormTest : public ReadingFormTest, public testing::WithParamInterface<Twin> {
  protected:
    void Open(const Faults& faults = {}) {
        form.reset();
        bench = std::make_unique<SimulatedBench>(faults);
        Reopen();
    }
    void Reopen() {
        if (GetParam().converter == Converter::Main) {
            ReadingFormTest::Open<ReadMainDataForm>();
        } else {
            ReadingFormTest::Open<ReadAuxDataForm>();
        }
    }
    CodeBlock Block() { return bench->state.BlockOf(GetParam().converter); }
    std::int16_t CountOfBlock() override { return Block().count; }
    std::string Named(const std::string& before, const std::string& after) {
        return before + GetParam().name + after;
    }
};

INSTANTIATE_TEST_SUITE_P(Twins, ReadDataFormTest, testing::ValuesIn(twins),
                         [](const auto& twin) { return twin.param.name; });

TEST_P(ReadDataFormTest, HasItsTextsAndSitsInTheMiddle) {
    Open();
    EXPECT_EQ(form->windowTitle().toStdString(),
              Named("VX3260 Evaluation Software - Read Data From ", " Data Register"));
    ExpectTexts(*form, {{"Label1", "Number of Codes to Read :"},
                        {"Label2", "Current Code :"},
                        {"Label3", "Delay Between Reads (mS) :"},
                        {"Label4", "Reference Voltage :"},
                        {"NumCodesText", "200"},
                        {"ReadingLabel", ""},
                        {"Command1", "&Read Data for Analysis"},
                        {"Command2", "Read &Data for Display"},
                        {"Command3", "&Noise Analysis"},
                        {"Command4", "B&ack"}});
    for (const QPushButton* button : form->findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->autoDefault()) << button->objectName().toStdString();
    }
    const QPoint off = form->geometry().center() - form->screen()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 6);  // a frame's width
}

TEST_P(ReadDataFormTest, HasNoBadgeOnARealBoard) {
    Open();
    bench->services->boardBadge.clear();
    Reopen();
    EXPECT_FALSE(Find<QLabel>(*form, "BadgeLabel").isVisible());
}

TEST_P(ReadDataFormTest, ReadsABlockByButtonAndByEnter) {
    Open();
    EXPECT_EQ(Box("NumCodesText").text(), QStringLiteral("200"));
    EXPECT_EQ(Prompt(), QString());
    EXPECT_EQ(Find<QLabel>(*form, "BadgeLabel").text(), QStringLiteral("Simulated board"));
    Click("Command1");
    EXPECT_EQ(Block().count, 200);
    EXPECT_EQ(Block().codes.size(), 200U);
    EXPECT_NEAR(Block().codes[199], GetParam().code, 99);
    EXPECT_EQ(Find<QProgressBar>(*form, "ReadingProgress").text(),
              QStringLiteral("200 of 200 codes"));
    EXPECT_EQ(Prompt(), QString());
    TakePicture(*form, Named("Read", "DataForm").c_str());

    Type("NumCodesText", "12");
    Box("NumCodesText").setFocus();
    QTest::keyClick(&Box("NumCodesText"), Qt::Key_Return);
    EXPECT_EQ(Block().count, 12);
    EXPECT_EQ(Block().codes.size(), 12U);
    EXPECT_TRUE(Box("NumCodesText").hasFocus());
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(Shown().empty());
}

TEST_P(ReadDataFormTest, RefusesANumberOfCodesBeforeTheOldBlockIsTouched) {
    Open();
    Type("NumCodesText", "15");
    Click("Command1");
    const struct {
        const char* number;
        const char* error;
    } cases[] = {{"0", "Subscript out of range"},
                 {"-1", "Subscript out of range"},
                 {"32768", "Overflow"},
                 {"", "Type mismatch"},
                 {"abc", "Type mismatch"}};
    for (const auto& c : cases) {
        bench->messages.shown.clear();
        Type("NumCodesText", c.number);
        Click("Command1");
        EXPECT_EQ(Shown(), std::vector<std::string>{c.error}) << c.number;
        EXPECT_EQ(bench->messages.shown.at(0).icon, MessageIcon::Critical);
        EXPECT_EQ(Block().count, 15) << c.number;
        EXPECT_EQ(Block().codes.size(), 15U) << c.number;
    }
}

TEST_P(ReadDataFormTest, RefusesADelayThatIsNone) {
    Open();
    const struct {
        const char* delay;
        const char* error;
    } cases[] = {{"abc", "Type mismatch"},
                 {"107375", "Overflow"},
                 {"-107375", "Overflow"},
                 {"", "Type mismatch"}};
    for (const auto& c : cases) {
        bench->messages.shown.clear();
        Type("DelayText", c.delay);
        Click("Command2");
        EXPECT_EQ(Shown(), std::vector<std::string>{c.error}) << c.delay;
        EXPECT_EQ(Box("CurrentCodeText").text(), QString());
    }
}

TEST_P(ReadDataFormTest, RefusesADisabledConverterUntilItIsOpenedAgain) {
    Open();
    Click("Command1");
    bench->Chip().Preset(GetParam().controlAt, GetParam().disabled);
    Reopen();
    bench->Chip().Preset(GetParam().controlAt, GetParam().disabled | 0x80U);
    for (const char* button : {"Command1", "Command2"}) {
        bench->messages.shown.clear();
        Click(button);
        EXPECT_EQ(Shown(), std::vector<std::string>{Named("Enable ", " ADC before reading Data")});
        EXPECT_EQ(bench->messages.shown.at(0).icon, MessageIcon::Exclamation);
    }
    EXPECT_EQ(Block().count, 200);
    EXPECT_EQ(Block().codes.size(), 200U);
}

TEST_P(ReadDataFormTest, StopsABlockWithAnyKey) {
    Open();
    Type("NumCodesText", "5000");
    // Keys that would do something else: an access key, Escape, Enter.
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    } cases[] = {{Qt::Key_X, Qt::NoModifier},
                 {Qt::Key_A, Qt::AltModifier},
                 {Qt::Key_Escape, Qt::NoModifier},
                 {Qt::Key_Return, Qt::NoModifier}};
    for (const auto& c : cases) {
        Block().count = 0;
        bench->messages.shown.clear();
        std::int16_t atKey = 0;
        DuringReading(20, [&] {
            EXPECT_EQ(Prompt(), prompt);
            EXPECT_TRUE(Box("Text1").hasFocus());
            EXPECT_LT(Find<QProgressBar>(*form, "ReadingProgress").value(), 5000);
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(&Box("Text1"), &held);
            QTest::keyClick(&Box("Text1"), Qt::Key_Shift);
            EXPECT_EQ(Prompt(), prompt);
            for (const char* button : {"Command1", "Command2", "Command3"}) {
                Click(button);
            }
            atKey = Block().count;
            QTest::keyClick(&Box("Text1"), c.key, c.modifiers);
            EXPECT_EQ(Prompt(), QString());
        });
        Click("Command1");
        EXPECT_EQ(Shown(), std::vector<std::string>{"User Interruption of Reading"}) << c.key;
        EXPECT_EQ(bench->messages.shown.at(0).icon, MessageIcon::Exclamation);
        EXPECT_EQ(Block().count, atKey);
        EXPECT_EQ(Block().codes.size(), 5000U);
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(Box("Text1").text(), QString());
    }
}

TEST_P(ReadDataFormTest, ClosesAfterTheReadingItStopped) {
    Open();
    Type("NumCodesText", "5000");
    DuringReading(20, [this] {
        Click("Command4");
        EXPECT_TRUE(form->isVisible());
    });
    Click("Command1");
    EXPECT_FALSE(form->isVisible());

    Reopen();
    Type("DelayText", "60000");
    DuringReading(0, [this] { form->close(); });
    Click("Command2");
    EXPECT_FALSE(form->isVisible());
    EXPECT_NE(Box("CurrentCodeText").text(), QString());
}

TEST_P(ReadDataFormTest, ShowsCodesInHexadecimalUntilAKeyIsPressed) {
    Open();
    for (const char* delay : {"0", "-5", "1"}) {
        Type("DelayText", delay);
        int turns = 0;
        auto* timer = new QTimer(form.get());
        QObject::connect(timer, &QTimer::timeout, form.get(), [&, timer] {
            if (++turns == 10) {
                timer->stop();
                QTest::keyClick(&Box("Text1"), Qt::Key_Space);
            }
        });
        timer->start(0);
        Click("Command2");
        EXPECT_EQ(turns, 10);
        EXPECT_NEAR(Box("CurrentCodeText").text().toInt(nullptr, 16), GetParam().code, 99) << delay;
    }
}

TEST_P(ReadDataFormTest, LetsTheDelayPassBetweenTwoCodes) {
    Open();
    Type("DelayText", "60");
    int codes = 0;
    QObject::connect(&Box("CurrentCodeText"), &QLineEdit::textChanged, form.get(), [&] {
        if (++codes == 3) {
            QTest::keyClick(&Box("Text1"), Qt::Key_Space);
        }
    });
    QElapsedTimer elapsed;
    elapsed.start();
    Click("Command2");
    EXPECT_EQ(codes, 3);
    EXPECT_GE(elapsed.elapsed(), 2 * 60);
}

TEST_P(ReadDataFormTest, FollowsALongReadingOnItsBar) {
    Open();
    Type("NumCodesText", "5000");
    std::vector<int> values;
    QObject::connect(&Find<QProgressBar>(*form, "ReadingProgress"), &QProgressBar::valueChanged,
                     form.get(), [&](int value) { values.push_back(value); });
    Click("Command1");
    ASSERT_GT(values.size(), 2U);
    EXPECT_EQ(values[0], 0);
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    EXPECT_EQ(values.back(), 5000);
}

TEST_P(ReadDataFormTest, TellsWhenNoResultBecomesReady) {
    Faults faults;
    AddFault("no-data-ready", faults);
    Open(faults);
    for (const char* button : {"Command1", "Command2"}) {
        bench->messages.shown.clear();
        Click(button);
        EXPECT_EQ(Shown(), std::vector<std::string>{"Error Reading Data from VX3260"});
        EXPECT_EQ(bench->messages.shown.at(0).icon, MessageIcon::None);
        EXPECT_NE(bench->messages.shown.at(0).detail, "");
    }
    EXPECT_EQ(Block().count, 1);
    EXPECT_EQ(Block().codes.at(0), -2147483648.0);
}

TEST_P(ReadDataFormTest, StoresTheReferenceVoltageWithTwoDecimals) {
    Open();
    QLineEdit& box = Box("RefText");
    EXPECT_EQ(box.text(), QStringLiteral("2.50"));
    Type("RefText", "2.048");
    EXPECT_EQ(bench->state.ReferenceVoltage, 2.05F);
    box.setFocus();
    Box("NumCodesText").setFocus();
    EXPECT_EQ(box.text(), QStringLiteral("2.05"));
    for (const char* text : {"", "abc", "0", "-1", "0.004", "1e60", "2,5"}) {
        Type("RefText", text);
        EXPECT_EQ(bench->state.ReferenceVoltage, 2.05F) << text;
        EXPECT_NE(box.accessibleDescription(), QString()) << text;
        box.setFocus();
        Box("NumCodesText").setFocus();
        EXPECT_EQ(box.text(), QString::fromUtf8(text));
    }
    Type("RefText", "1.25");
    EXPECT_EQ(box.accessibleDescription(), QString());
    Reopen();
    EXPECT_EQ(Box("RefText").text(), QStringLiteral("1.25"));
}

TEST_P(ReadDataFormTest, GoesOnToTheNoiseOfABlockOfFittingSize) {
    Open();
    for (const int count : {9, 5001}) {
        Block().count = static_cast<std::int16_t>(count);
        bench->messages.shown.clear();
        Click("Command3");
        EXPECT_EQ(Shown(),
                  std::vector<std::string>{
                      "For Data Analysis the number of Codes read must be between 9 and 5000"});
        EXPECT_EQ(bench->messages.shown.at(0).icon, MessageIcon::None);
    }
    for (const char* count : {"10", "5000", "200"}) {
        Type("NumCodesText", count);
        Click("Command1");
        QString title;
        const auto look = [&](QDialog& noise) {
            title = noise.windowTitle();
            TakePicture(noise, Named("", "NoiseForm").c_str());
            EXPECT_EQ(Find<QLabel>(noise, "HeadingLabel").text().toStdString(),
                      Named("", " ADC Noise Analysis"));
        };
        WhileModal([this] { Click("Command3"); }, look);
        EXPECT_EQ(title, QStringLiteral("VX3260 Evaluation Software - Noise Analysis")) << count;
    }
}

using ReadAuxDataFormTest = ReadingFormTest;

TEST_F(ReadAuxDataFormTest, ShowsTheTemperatureOfItsSensor) {
    bench->Chip().Preset(auxZeroScaleAt,
                         0x8000 + 131);  // takes the offset out: 0.2 % of full scale
    Open<ReadAuxDataForm>();
    EXPECT_TRUE(Find<QGroupBox>(*form, "TemperatureFrame").isVisible());
    ExpectTexts(*form, {{"SlopeText", "1.000"}, {"TemperatureText", ""}});
    const auto temperature = [this] { return Box("TemperatureText").text().toDouble(); };
    Click("Command1");
    const double kelvin = 298.15 * 0.996;  // the gain error
    EXPECT_NEAR(temperature(), kelvin - 273.15, 0.1);
    Type("SlopeText", "1.100");
    EXPECT_NEAR(temperature(), kelvin / 1.1 - 273.15, 0.1);
    Type("SlopeText", "0");
    EXPECT_NE(Box("SlopeText").accessibleDescription(), QString());
    EXPECT_NEAR(temperature(), kelvin / 1.1 - 273.15, 0.1);
    Type("RefText", "5");
    EXPECT_NEAR(temperature(), 2 * kelvin / 1.1 - 273.15, 0.2);
    Open<ReadAuxDataForm>();
    EXPECT_EQ(Box("SlopeText").text(), QStringLiteral("1.100"));
    bench->state.ReferenceVoltage = 2.5F;
    Type("SlopeText", "1");
    DuringReading(0, [this] { QTest::keyClick(&Box("Text1"), Qt::Key_Space); });
    Click("Command2");
    EXPECT_NEAR(temperature(), kelvin - 273.15, 0.5);

    bench->Chip().Preset(modeAt, 1);  // no result comes any more
    Click("Command1");
    EXPECT_EQ(Box("TemperatureText").text(), QString()) << "of a block that is gone";

    bench->Chip().Preset(auxControlAt, 0x89);
    Open<ReadAuxDataForm>();
    EXPECT_FALSE(Find<QGroupBox>(*form, "TemperatureFrame").isVisible());
}

TEST_F(ReadAuxDataFormTest, ReadsTheMainCodeAlongsideSoThatEachResultIsNew) {
    Open<ReadAuxDataForm>();
    Click("Command1");
    const std::uint32_t status = bench->Chip().Contents(statusAt);
    EXPECT_EQ(status & 0xC0U, 0U) << "results left unread";
    const auto& codes = bench->state.AuxCodes;
    EXPECT_GT(std::set<double>(codes.begin(), codes.end()).size(), 1U);
}

using ReadDualDataFormTest = ReadingFormTest;

TEST_F(ReadDualDataFormTest, ShowsBothCodesInHexadecimalAndInVolts) {
    Open<ReadDualDataForm>();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("VX3260 Evaluation Software - Dual ADC Display"));
    ExpectTexts(*form, {{"Frame1", "Main ADC"},
                        {"Frame2", "Aux ADC"},
                        {"Label3", "Delay Between Reads (mS) :"},
                        {"Label4", "Reference Voltage :"},
                        {"DelayText", "100"},
                        {"Command2", "Read &Data for Display"},
                        {"Command4", "B&ack"}});
    Box("DelayText").setFocus();
    DuringReading(0, [this] {
        EXPECT_EQ(Prompt(), prompt);
        QTest::keyClick(&Box("Text1"), Qt::Key_A, Qt::AltModifier);
    });
    QTest::keyClick(&Box("DelayText"), Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(Shown().empty());
    TakePicture(*form, "ReadDualDataForm");
    EXPECT_NEAR(Box("MainCodeText").text().toInt(nullptr, 16), twins[0].code, 99);
    EXPECT_NEAR(Box("AuxCodeText").text().toInt(nullptr, 16), twins[1].code, 99);
    const auto expectVolts = [this](const char* box, double volts, double tolerance) {
        const QStringList words = Box(box).text().split(QLatin1Char(' '));
        EXPECT_NEAR(words.at(0).toDouble(), volts, tolerance) << box;
        EXPECT_EQ(words.at(1), QStringLiteral("V"));
        return words.at(0).section(QLatin1Char('.'), 1).size();
    };
    EXPECT_EQ(expectVolts("MainVoltsText", 0.01 * 0.996 + 0.002 * 2.56, 3e-5), 7);
    EXPECT_EQ(expectVolts("AuxVoltsText", 0.29815 * 0.996 + 0.002 * 2.5, 1e-3), 5);
}

TEST_F(ReadDualDataFormTest, NamesTheConverterThatIsDisabled) {
    const struct {
        std::uint32_t main;
        std::uint32_t aux;
        const char* refusal;
    } cases[] = {{0x07, 0xB9, "Enable Main ADC before reading Data"},
                 {0x87, 0x39, "Enable Aux ADC before reading Data"},
                 {0x07, 0x39, "Enable Main ADC before reading Data"}};
    for (const auto& c : cases) {
        bench->Chip().Preset(mainControlAt, c.main);
        bench->Chip().Preset(auxControlAt, c.aux);
        bench->messages.shown.clear();
        Open<ReadDualDataForm>();
        Click("Command2");
        EXPECT_EQ(Shown(), std::vector<std::string>{c.refusal});
        EXPECT_EQ(bench->messages.shown.at(0).icon, MessageIcon::Exclamation);
        EXPECT_EQ(Box("MainCodeText").text(), QString());
    }
}

TEST_F(ReadDualDataFormTest, TellsWhenNoResultBecomesReady) {
    Faults faults;
    AddFault("no-data-ready", faults);
    bench = std::make_unique<SimulatedBench>(faults);
    Open<ReadDualDataForm>();
    Click("Command2");
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error Reading Data from VX3260"});
    EXPECT_EQ(Box("AuxCodeText").text(), QString());
}

}  // namespace
}  // namespace vx3260
