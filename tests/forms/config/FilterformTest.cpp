#include "forms/config/Filterform.h"

#include <gtest/gtest.h>

#include <QTest>

#include "support/Forms.h"
#include "support/Pictures.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

class FilterformTest : public testing::Test {
  protected:
    void Open(std::uint32_t word = 0x45, const Faults& faults = {}) {
        bench = std::make_unique<SimulatedBench>(faults);
        bench->Chip().Preset(modeAt, 0);
        bench->Chip().Preset(filterAt, word);
        form = std::make_unique<Filterform>(*bench->services);
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    QString Text(const char* box) { return Find<QLineEdit>(*form, box).text(); }
    void Enter(const char* box, const QString& text) {
        bench->messages.shown.clear();
        Find<QLineEdit>(*form, box).setText(text);
        QTest::keyClick(&Find<QLineEdit>(*form, box), Qt::Key_Return);
    }

    std::unique_ptr<SimulatedBench> bench;
    std::unique_ptr<Filterform> form;
};

TEST_F(FilterformTest, ShowsWordRateAndBits) {
    Open();
    TakePicture(*form, "Filterform");
    EXPECT_EQ(form->windowTitle(), QStringLiteral("VX3260 - Program Filter Register"));
    ExpectTexts(*form, {{"Frame2", "Program Filter Word"},
                        {"Label10", "Filter Word (Hex)"},
                        {"Label11", "Output Update Rate"},
                        {"Label9", "Filter Register"},
                        {"Frame3", "Current Contents of Filter Register"},
                        {"Filterlabel", "45"},
                        {"Label2", "1"},
                        {"Label3", "0"},
                        {"Command1", "B&ack"}});
    EXPECT_EQ(Text("TxtFilter"), QStringLiteral("45"));
    EXPECT_EQ(Text("TxtUpdate"), QStringLiteral("19.79"));
    EXPECT_EQ(bench->state.FilterValue, 0x45);
}

TEST_F(FilterformTest, TellsWhenTheRegisterReadsZero) {
    Faults faults;
    AddFault("dout-stuck-low", faults);
    Open(0x45, faults);
    EXPECT_EQ(bench->messages.Texts(), std::vector<std::string>{"Error Reading from VX3260"});
    EXPECT_EQ(bench->messages.shown[0].icon, MessageIcon::None);
    EXPECT_EQ(Text("TxtFilter"), QString());
}

TEST_F(FilterformTest, TakesAWordOnEnter) {
    const char* const most = "The maximum Filter Word is  FF Hex";
    const char* const least = "The minimum Filter Word is D Hex";
    const char* const noHex = "The Filter Word is not a hexadecimal number";
    const struct {
        const char* typed;
        const char* message;
        std::uint32_t word;
        const char* rate;
    } cases[] = {
        {"FF", "", 0xFF, "05.35"},     {"d", "", 0x0D, "105.03"},      {"0045", "", 0x45, "19.79"},
        {"100", most, 0x80, ""},       {"FFFFF", most, 0x80, ""},      {"C", least, 0x80, ""},
        {"", least, 0x80, ""},         {"8000", least, 0x80, ""},  // negative as 16 bits
        {"FFFFFFFF", least, 0x80, ""}, {"12G", noHex, 0x80, ""},       {"-1", noHex, 0x80, ""},
        {"   ", noHex, 0x80, ""},      {"100000000", noHex, 0x80, ""},
    };
    for (const auto& c : cases) {
        Open(0x80);
        Enter("TxtFilter", QString::fromLatin1(c.typed));
        EXPECT_EQ(bench->Chip().Contents(filterAt), c.word) << c.typed;
        if (*c.message == '\0') {
            EXPECT_TRUE(bench->messages.shown.empty());
            EXPECT_EQ(Text("TxtUpdate"), QString::fromLatin1(c.rate));
            EXPECT_EQ(Find<QLabel>(*form, "Filterlabel").text(), Text("TxtFilter"));
        } else {
            EXPECT_EQ(bench->messages.Texts(), std::vector<std::string>{c.message}) << c.typed;
            EXPECT_EQ(bench->messages.shown[0].icon, MessageIcon::Exclamation);
        }
    }
    EXPECT_EQ(Find<QLineEdit>(*form, "TxtFilter").selectedText(), QStringLiteral("100000000"));
    Enter("TxtFilter", QString(10000, QLatin1Char('F')));
    EXPECT_EQ(bench->messages.Texts(), std::vector<std::string>{noHex});
}

TEST_F(FilterformTest, TakesARateOnEnter) {
    const char* const range = "Enter a value Between 5.35 Hz and 105.3 Hz";
    const char* const noNumber = "The Output Update Rate is not a number";
    const struct {
        const char* typed;
        const char* message;
        std::uint32_t word;
        const char* rate;
    } cases[] = {
        {"20", "", 0x44, "20.0784"},        {"19.5", "", 0x44, "20.0784"},
        {"5", "", 0xFF, "5.3542"},          {"105", "", 0x0D, "105.0256"},
        {"105.2", "", 0x0D, "105.0256"},    {"105.6", range, 0x0D, "105.0256"},
        {"4", range, 0xFF, "5.3542"},       {"106", range, 0x0D, "105.0256"},
        {"-1", range, 0xFF, "5.3542"},      {"100", "", 0x0D, "105.0256"},
        {"", noNumber, 0x80, ""},           {"0", noNumber, 0x80, "0"},
        {"0.001", noNumber, 0x80, "0.001"}, {"abc", noNumber, 0x80, "abc"},
        {"1e5", "Overflow", 0x80, "1e5"},
    };
    for (const auto& c : cases) {
        Open(0x80);
        Enter("TxtUpdate", QString::fromLatin1(c.typed));
        EXPECT_EQ(bench->Chip().Contents(filterAt), c.word) << c.typed;
        EXPECT_EQ(Text("TxtUpdate"), QString::fromLatin1(c.rate)) << c.typed;
        const std::vector<std::string> messages =
            *c.message == '\0' ? std::vector<std::string>{} : std::vector<std::string>{c.message};
        EXPECT_EQ(bench->messages.Texts(), messages) << c.typed;
    }
}

TEST_F(FilterformTest, SpellsItsErrorTwoWays) {
    Open();
    bench->Chip().Preset(modeAt, 3);  // the chip takes no filter word now
    Enter("TxtFilter", QStringLiteral("20"));
    EXPECT_EQ(bench->messages.Texts(), std::vector<std::string>{"Error programming VX3260"});
    EXPECT_EQ(Find<QLabel>(*form, "Filterlabel").text(), QStringLiteral("45"));
    Enter("TxtUpdate", QStringLiteral("50"));
    EXPECT_EQ(bench->messages.Texts(), std::vector<std::string>{"Error Programming VX3260"});
}

}  // namespace
}  // namespace vx3260
