#include "forms/data/ReadMainDataForm.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <algorithm>

#include "support/Forms.h"
#include "support/Pictures.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

const QString prompt = QStringLiteral("Press any key to stop reading");

class ReadMainDataFormTest : public testing::Test {
  protected:
    void Open(const Faults& faults = {}) {
        bench = std::make_unique<SimulatedBench>(faults);
        Reopen();
    }
    void Reopen() {
        form = std::make_unique<ReadMainDataForm>(*bench->services);
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
            if (bench->state.MainCodeCount >= count) {
                timer->stop();
                act();
            }
        });
        timer->start(0);
    }

    std::vector<std::string> Shown() { return bench->messages.Texts(); }

    std::unique_ptr<SimulatedBench> bench;
    std::unique_ptr<ReadMainDataForm> form;
};

TEST_F(ReadMainDataFormTest, HasItsTextsAndSitsInTheMiddle) {
    Open();
    EXPECT_EQ(form->windowTitle(),
              QStringLiteral("VX3260 Evaluation Software - Read Data From Main Data Register"));
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

TEST_F(ReadMainDataFormTest, HasNoBadgeOnARealBoard) {
    Open();
    bench->services->boardBadge.clear();
    Reopen();
    EXPECT_FALSE(Find<QLabel>(*form, "BadgeLabel").isVisible());
}

TEST_F(ReadMainDataFormTest, ReadsABlockByButtonAndByEnter) {
    Open();
    EXPECT_EQ(Box("NumCodesText").text(), QStringLiteral("200"));
    EXPECT_EQ(Prompt(), QString());
    EXPECT_EQ(Find<QLabel>(*form, "BadgeLabel").text(), QStringLiteral("Simulated board"));
    Click("Command1");
    EXPECT_EQ(bench->state.MainCodeCount, 200);
    EXPECT_EQ(bench->state.MainCodes.size(), 200U);
    EXPECT_NEAR(bench->state.MainCodes[199], 8388608 + (0.01 * 0.996 / 2.56 + 0.002) * 8388608, 99);
    EXPECT_EQ(Find<QProgressBar>(*form, "ReadingProgress").text(),
              QStringLiteral("200 of 200 codes"));
    EXPECT_EQ(Prompt(), QString());
    TakePicture(*form, "ReadMainDataForm");

    Type("NumCodesText", "12");
    Box("NumCodesText").setFocus();
    QTest::keyClick(&Box("NumCodesText"), Qt::Key_Return);
    EXPECT_EQ(bench->state.MainCodeCount, 12);
    EXPECT_EQ(bench->state.MainCodes.size(), 12U);
    EXPECT_TRUE(Box("NumCodesText").hasFocus());
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(Shown().empty());
}

TEST_F(ReadMainDataFormTest, RefusesANumberOfCodesBeforeTheOldBlockIsTouched) {
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
        EXPECT_EQ(bench->state.MainCodeCount, 15) << c.number;
        EXPECT_EQ(bench->state.MainCodes.size(), 15U) << c.number;
    }
}

TEST_F(ReadMainDataFormTest, RefusesADelayThatIsNone) {
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

TEST_F(ReadMainDataFormTest, RefusesADisabledConverterUntilItIsOpenedAgain) {
    Open();
    Click("Command1");
    bench->Chip().Preset(mainControlAt, 0x07);
    Reopen();
    bench->Chip().Preset(mainControlAt, 0x87);
    for (const char* button : {"Command1", "Command2"}) {
        bench->messages.shown.clear();
        Click(button);
        EXPECT_EQ(Shown(), std::vector<std::string>{"Enable Main ADC before reading Data"});
        EXPECT_EQ(bench->messages.shown.at(0).icon, MessageIcon::Exclamation);
    }
    EXPECT_EQ(bench->state.MainCodeCount, 200);
    EXPECT_EQ(bench->state.MainCodes.size(), 200U);
}

TEST_F(ReadMainDataFormTest, StopsABlockWithAnyKey) {
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
        bench->state.MainCodeCount = 0;
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
            atKey = bench->state.MainCodeCount;
            QTest::keyClick(&Box("Text1"), c.key, c.modifiers);
            EXPECT_EQ(Prompt(), QString());
        });
        Click("Command1");
        EXPECT_EQ(Shown(), std::vector<std::string>{"User Interruption of Reading"}) << c.key;
        EXPECT_EQ(bench->messages.shown.at(0).icon, MessageIcon::Exclamation);
        EXPECT_EQ(bench->state.MainCodeCount, atKey);
        EXPECT_EQ(bench->state.MainCodes.size(), 5000U);
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(Box("Text1").text(), QString());
    }
}

TEST_F(ReadMainDataFormTest, ClosesAfterTheReadingItStopped) {
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

TEST_F(ReadMainDataFormTest, ShowsCodesInHexadecimalUntilAKeyIsPressed) {
    Open();
    bench->Chip().Preset(mainControlAt, 0xA7);
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
        EXPECT_NEAR(Box("CurrentCodeText").text().toInt(nullptr, 16), 8388608 + 16777, 100)
            << delay;
    }
}

TEST_F(ReadMainDataFormTest, LetsTheDelayPassBetweenTwoCodes) {
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

TEST_F(ReadMainDataFormTest, FollowsALongReadingOnItsBar) {
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

TEST_F(ReadMainDataFormTest, TellsWhenNoResultBecomesReady) {
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
    EXPECT_EQ(bench->state.MainCodeCount, 1);
    EXPECT_EQ(bench->state.MainCodes.at(0), -2147483648.0);
}

TEST_F(ReadMainDataFormTest, StoresTheReferenceVoltageWithTwoDecimals) {
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

TEST_F(ReadMainDataFormTest, GoesOnToTheNoiseOfABlockOfFittingSize) {
    Open();
    for (const int count : {9, 5001}) {
        bench->state.MainCodeCount = static_cast<std::int16_t>(count);
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
            TakePicture(noise, "MainNoiseForm");
        };
        WhileModal([this] { Click("Command3"); }, look);
        EXPECT_EQ(title, QStringLiteral("VX3260 Evaluation Software - Noise Analysis")) << count;
    }
}

}  // namespace
}  // namespace vx3260
