// SPDX-License-Identifier: GPL-3.0-or-later
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <set>

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
    unsigned controlAt;
    std::uint32_t disabled;  ///< its control register as at start, but for the enable bit
    double code;             ///< of the input that is connected at start
};

const Twin twins[] = {
    {Converter::Main, "Main", mainControlAt, 0x07, mainCodeAtStart},
    {Converter::Aux, "Aux", auxControlAt, 0x39, auxCodeAtStart},
};

class ReadingFormTest : public FormTest {
  protected:
    int HexIn(const char* box) { return Box(box).text().toInt(nullptr, 16); }
    void Type(const char* box, const char* text) { Box(box).setText(QString::fromUtf8(text)); }
    void PressAKey() { QTest::keyClick(&Box("Text1"), Qt::Key_Space); }

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
    std::string Named(const std::string& before, const std::string& after) {
        return before + GetParam().name + after;
    }
};

INSTANTIATE_TEST_SUITE_P(Twins, ReadDataFormTest, testing::ValuesIn(twins),
                         [](const auto& twin) { return twin.param.name; });

TEST_P(ReadDataFormTest, HasItsTextsAndSitsInTheMiddle) {
    Open();
    EXPECT_EQ(TextOf(*form),
              Named("VX3260 Evaluation Software - Read Data From ", " Data Register"));
    Expect(
        "Label1: Number of Codes to Read : | NumCodesText: 200 | Label2: Current Code : | "
        "Label3: Delay Between Reads (mS) : | DelayText: 100 | "
        "Label4: Reference Voltage : | RefText: 2.50 | ReadingLabel: | "
        "Command1: &Read Data for Analysis | Command2: Read &Data for Display | "
        "Command3: &Noise Analysis | Command4: B&ack | BadgeLabel: Simulated board");
    for (const QPushButton* button : form->findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->autoDefault()) << button->objectName().toStdString();
    }
    const QPoint off = form->frameGeometry().center() - form->screen()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 6);  // a frame's width
    bench->services->boardLabel.clear();
    Open();
    EXPECT_FALSE(Find(*form, "BadgeLabel").isVisible());
}

TEST_P(ReadDataFormTest, ReadsABlockByButtonAndByEnter) {
    Open();
    std::set<int> progress;
    QObject::connect(&Find<QProgressBar>(*form, "ReadingProgress"), &QProgressBar::valueChanged,
                     form.get(), [&](int value) { progress.insert(value); });
    EXPECT_EQ(ClickOn("Command1"), "");
    EXPECT_EQ(*progress.begin(), 0);
    EXPECT_EQ(Block().count, 200);
    EXPECT_EQ(Block().codes.size(), 200U);
    EXPECT_NEAR(Block().codes[199], GetParam().code, 99);
    Expect("ReadingProgress: 200 of 200 codes | ReadingLabel:");
    TakePicture(*form, Named("Read", "DataForm"));

    Box("NumCodesText").setFocus();
    EXPECT_EQ(Enter("NumCodesText", "12"), "");
    EXPECT_EQ(Block().count, 12);
    EXPECT_EQ(Block().codes.size(), 12U);
    EXPECT_TRUE(Box("NumCodesText").hasFocus());
    EXPECT_TRUE(form->isVisible());
}

TEST_P(ReadDataFormTest, RefusesNumbersThatAreNone) {
    bench->Fill(GetParam().converter, {1, 2});
    Open();
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"NumCodesText", "0", "Critical: Subscript out of range"},
        {"NumCodesText", "32768", "Critical: Overflow"},
        {"NumCodesText", "abc", "Critical: Type mismatch"},
        {"DelayText", "107375", "Critical: Overflow"},
        {"DelayText", "", "Critical: Type mismatch"}};
    for (const auto& [box, number, error] : cases) {
        EXPECT_EQ(Enter(box, number), error) << number;
        EXPECT_EQ(Block().codes, (std::vector<double>{1, 2})) << number;
        Expect("CurrentCodeText:");
    }
}

TEST_P(ReadDataFormTest, RefusesADisabledConverterUntilItIsOpenedAgain) {
    bench->Fill(GetParam().converter, {1, 2});
    Preset(GetParam().controlAt, GetParam().disabled);
    Open();
    Preset(GetParam().controlAt, GetParam().disabled | 0x80U);
    for (const char* button : {"Command1", "Command2"}) {
        EXPECT_EQ(ClickOn(button), Named("Exclamation: Enable ", " ADC before reading Data"));
        EXPECT_EQ(Block().count, 2);
    }
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

TEST_P(ReadDataFormTest, ClosesAfterTheReadingItStopped) {
    Open();
    Type("NumCodesText", "5000");
    DuringReading([this] {
        ClickOn("Command4");
        EXPECT_TRUE(form->isVisible());
    });
    ClickOn("Command1");
    EXPECT_FALSE(form->isVisible());

    Open();
    Type("DelayText", "60000");
    DuringReading([this] { form->close(); });
    ClickOn("Command2");
    EXPECT_FALSE(form->isVisible());
    EXPECT_NE(TextOf(*form, "CurrentCodeText"), "");
}

TEST_P(ReadDataFormTest, ShowsCodesInHexadecimalUntilAKeyIsPressed) {
    Open();
    for (const char* delay : {"0", "-5"}) {
        Type("DelayText", delay);
        Type("CurrentCodeText", "");
        DuringReading([this] { PressAKey(); });
        EXPECT_EQ(ClickOn("Command2"), "");
        EXPECT_NEAR(HexIn("CurrentCodeText"), GetParam().code, 99) << delay;
    }
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

TEST_P(ReadDataFormTest, TellsWhenNoResultBecomesReady) {
    UseBoardWith("no-data-ready");
    Open();
    bench->messages.atBox = [this] { EXPECT_NE(bench->messages.shown.back().detail, ""); };
    for (const char* button : {"Command1", "Command2"}) {
        EXPECT_EQ(ClickOn(button), "Plain: Error Reading Data from VX3260");
    }
    EXPECT_EQ(Block().count, 1);
    EXPECT_EQ(Block().codes.at(0), -2147483648.0);
}

TEST_P(ReadDataFormTest, StoresTheReferenceVoltageWithTwoDecimals) {
    Open();
    const auto typeAndLeave = [this](const char* text) {
        Box("RefText").setFocus();
        Type("RefText", text);
        Box("NumCodesText").setFocus();
    };
    typeAndLeave("2.048");
    EXPECT_EQ(bench->state.ReferenceVoltage, 2.05F);
    Expect("RefText: 2.05");
    for (const char* text : {"", "abc", "0", "-1", "0.004", "1e60"}) {
        typeAndLeave(text);
        EXPECT_EQ(bench->state.ReferenceVoltage, 2.05F) << text;
        EXPECT_NE(Box("RefText").accessibleDescription(), QString()) << text;
        EXPECT_EQ(TextOf(*form, "RefText"), text);
    }
    Type("RefText", "1.25");
    EXPECT_EQ(Box("RefText").accessibleDescription(), QString());
    Open();
    Expect("RefText: 1.25");
}

TEST_P(ReadDataFormTest, GoesOnToTheNoiseOfABlockOfFittingSize) {
    Open();
    EXPECT_EQ(ClickOn("Command3"),
              "Plain: For Data Analysis the number of Codes read must be between 9 and 5000");
    ClickOn("Command1");
    const auto look = [this](QDialog& noise) {
        EXPECT_EQ(TextOf(noise, "HeadingLabel"), Named("", " ADC Noise Analysis"));
        TakePicture(noise, Named("", "NoiseForm"));
    };
    EXPECT_TRUE(WhileModal([this] { Click(*form, "Command3"); }, look));
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
    EXPECT_NEAR(temperature(), kelvin / 1.1 - 273.15, 0.1);
    Type("RefText", "5");
    EXPECT_NEAR(temperature(), 2 * kelvin / 1.1 - 273.15, 0.2);
    Open<ReadAuxDataForm>();
    Expect("SlopeText: 1.100");
    bench->state.ReferenceVoltage = 2.5F;
    Type("SlopeText", "1");
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
    Expect(
        "ReadDualDataForm: VX3260 Evaluation Software - Dual ADC Display | "
        "Frame1: Main ADC | Frame2: Aux ADC | Label3: Delay Between Reads (mS) : | "
        "Label4: Reference Voltage : | DelayText: 100 | "
        "Command2: Read &Data for Display | Command4: B&ack");
    Box("DelayText").setFocus();
    DuringReading([this] {
        EXPECT_EQ(TextOf(*form, "ReadingLabel"), prompt);
        QTest::keyClick(&Box("Text1"), Qt::Key_A, Qt::AltModifier);
    });
    QTest::keyClick(&Box("DelayText"), Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(bench->messages.Take(), "");
    TakePicture(*form, "ReadDualDataForm");
    EXPECT_NEAR(HexIn("MainCodeText"), mainCodeAtStart, 99);
    EXPECT_NEAR(HexIn("AuxCodeText"), auxCodeAtStart, 99);
    const std::string mainVolts = TextOf(*form, "MainVoltsText");
    const std::string auxVolts = TextOf(*form, "AuxVoltsText");
    EXPECT_EQ(mainVolts.size(), std::string("0.1234567 V").size());
    EXPECT_EQ(auxVolts.size(), std::string("0.12345 V").size());
    EXPECT_NEAR(std::stod(mainVolts), 0.01 * 0.996 + 0.002 * 2.56, 3e-5);
    EXPECT_NEAR(std::stod(auxVolts), 0.29815 * 0.996 + 0.002 * 2.5, 1e-3);
}

TEST_F(ReadDualDataFormTest, TellsWhyItDoesNotRead) {
    const std::tuple<const char*, std::uint32_t, std::uint32_t, const char*> cases[] = {
        {"", 0x07, 0xB9, "Exclamation: Enable Main ADC before reading Data"},
        {"", 0x87, 0x39, "Exclamation: Enable Aux ADC before reading Data"},
        {"no-data-ready", 0x87, 0xB9, "Plain: Error Reading Data from VX3260"}};
    for (const auto& [fault, main, aux, message] : cases) {
        UseBoardWith(fault);
        Preset(mainControlAt, main);
        Preset(auxControlAt, aux);
        Open<ReadDualDataForm>();
        EXPECT_EQ(ClickOn("Command2"), message);
        Expect("MainCodeText: | AuxCodeText:");
    }
}

}  // namespace
}  // namespace vx3260::test
