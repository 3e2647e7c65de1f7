#include "forms/config/IOControlForm.h"

#include <gtest/gtest.h>

#include <QPushButton>

#include "support/Forms.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

class IOControlFormTest : public testing::Test {
  protected:
    void Open(std::uint32_t value) {
        bench.Chip().Preset(ioControlAt, value);
        form = std::make_unique<IOControlForm>(*bench.services);
        form->show();
    }
    QRadioButton& Option(const char* name) { return Find<QRadioButton>(*form, name); }
    void Update() { Find<QPushButton>(*form, "Command2").click(); }
    /// Tri-state, driven, high, low of a pin: "E" for enabled, "-" for not.
    std::string Enabled(std::initializer_list<const char*> names) {
        std::string text;
        for (const char* name : names) {
            text += Option(name).isEnabled() ? 'E' : '-';
        }
        return text;
    }
    std::string EnabledOfP1() { return Enabled({"OptP1Tri", "OptP1IO", "OptP1High", "OptP1Low"}); }
    std::string EnabledOfP2() { return Enabled({"OptP2Tri", "OptP2IO", "optP2High", "OptP2Low"}); }

    SimulatedBench bench;
    std::unique_ptr<IOControlForm> form;
};

TEST_F(IOControlFormTest, EnablesWhatThePinsFunctionAllows) {
    struct {
        std::uint32_t value;
        const char* enabled;
    } const atLoad[] = {{0x0000, "EE--"}, {0x0010, "EEEE"}, {0x4000, "----"}, {0x4010, "----"}};
    for (const auto& c : atLoad) {
        Open(c.value);
        EXPECT_EQ(EnabledOfP1(), c.enabled) << c.value;
        Open(c.value << 1);  // P2's bits lie one higher
        EXPECT_EQ(EnabledOfP2(), c.enabled) << c.value;
    }
    Open(0x0010);
    Option("OptP1Power").click();
    EXPECT_EQ(EnabledOfP1(), "----");
    Option("OptP1Out").click();
    EXPECT_EQ(EnabledOfP1(), "EEEE");
    Option("OptP1Tri").click();
    EXPECT_EQ(EnabledOfP1(), "EE--");
    Option("OptP1Power").click();
    Option("OptP1Out").click();
    EXPECT_EQ(EnabledOfP1(), "EE--");
    Option("OptP1IO").click();
    EXPECT_EQ(EnabledOfP1(), "EEEE");
}

TEST_F(IOControlFormTest, ShowsTheLevelOfAnInputInPlaceOfItsButtons) {
    Open(0x0000);
    EXPECT_EQ(Find<QLabel>(*form, "P3Label").text(), QStringLiteral("High"));
    EXPECT_EQ(Find<QLabel>(*form, "P4Label").text(), QStringLiteral("Low"));
    EXPECT_TRUE(Find<QLabel>(*form, "P3Label").isVisible());
    EXPECT_FALSE(Option("OptP3High").isVisible());
    Option("OptP3Out").click();
    EXPECT_FALSE(Find<QLabel>(*form, "P3Label").isVisible());
    EXPECT_TRUE(Option("OptP3High").isVisible());
    EXPECT_TRUE(Option("optP3Low").isVisible());
    Option("OptP3In").click();
    EXPECT_TRUE(Find<QLabel>(*form, "P3Label").isVisible());
    EXPECT_TRUE(bench.messages.shown.empty());
    bench.Chip().Preset(ioControlAt, 0x80C8);
    Update();
    EXPECT_TRUE(Option("OptP4High").isVisible());
    EXPECT_TRUE(Option("OptP4High").isChecked());
    EXPECT_EQ(Find<QLabel>(*form, "P4Label").text(), QStringLiteral("High"));
    EXPECT_EQ(Find<QLabel>(*form, "IOControlLabel").text(), QStringLiteral("80C8"));
}

TEST_F(IOControlFormTest, TakesAnInputForGoodWhileItsPinReadsHigh) {
    Open(0x00C0);
    Option("OptP3In").click();  // bit 2 comes back as the pin's level, not as written
    EXPECT_EQ(bench.Chip().Contents(ioControlAt), 0x0084U);
    EXPECT_TRUE(bench.messages.shown.empty());
    Open(0x00C8);
    Option("OptP4In").click();  // the pin is low: bit 3 differs and is no excuse
    EXPECT_EQ(bench.messages.Texts(), std::vector<std::string>{"Error Programming VX3260"});
    EXPECT_TRUE(Option("OptP4High").isVisible());
}

TEST(IOControlForm, TakesAnInputForGoodOnALineThatIsStuckHigh) {
    Faults faults;
    AddFault("dout-stuck-high", faults);
    SimulatedBench bench(faults);
    const IOControlForm form(*bench.services);
    for (const char* option : {"OptP3In", "OptP4In"}) {
        Find<QRadioButton>(form, option).click();
        EXPECT_TRUE(bench.messages.shown.empty()) << option;
    }
}

TEST_F(IOControlFormTest, HasItsTexts) {
    Open(0);
    EXPECT_EQ(form->windowTitle(),
              QStringLiteral("VX3260 Evaluation Software - Program I/O Control Register"));
    ExpectTexts(*form, {{"Frame3", "P1 Function"},
                        {"OptP1Out", "P1 as Output"},
                        {"OptP1Power", "P1 as Power Switch"},
                        {"Frame4", "P2 Function"},
                        {"optP2Out", "P2 as Output"},
                        {"OptP2Power", "P2 as Power Switch"},
                        {"Frame5", "P3 I/O Direction"},
                        {"OptP3Out", "P3 as Output"},
                        {"OptP3In", "P3 as Input"},
                        {"Frame6", "P4 I/O Direction"},
                        {"OptP4Out", "P4 as Output"},
                        {"OptP4In", "P4 as Input"},
                        {"Frame7", "P1 Status"},
                        {"OptP1IO", "P1 Output"},
                        {"OptP1Tri", "P1 Tri State"},
                        {"Frame8", "P2 Status"},
                        {"OptP2Tri", "P2 Tri State"},
                        {"OptP2IO", "P2 Output"},
                        {"Frame9", "P3 State"},
                        {"optP3Low", "P3 Output Low"},
                        {"OptP3High", "P3 Output High"},
                        {"Frame10", "P4 State"},
                        {"OptP4High", "P4 Output High"},
                        {"OptP4Low", "P4 Output Low"},
                        {"Frame11", "P1 Output State"},
                        {"OptP1Low", "P1 Low"},
                        {"OptP1High", "P1 High"},
                        {"Frame12", "P2 Output State"},
                        {"optP2High", "P2 High"},
                        {"OptP2Low", "P2 Low"},
                        {"Frame13", "IEXC1 ON / OFF"},
                        {"OptIEXC1Off", "IEXC1 OFF"},
                        {"optIEXC1On", "IEXC1 ON"},
                        {"Frame14", "IEXC2 ON / OFF"},
                        {"OptIEXC2On", "IEXC2 ON"},
                        {"OptIEXC2Off", "IEXC2 OFF"},
                        {"Frame15", "IEXC1 Direction"},
                        {"OptIEXC1Iout1", "IEXC1 to IOUT1"},
                        {"OptIEXC1Iout2", "IEXC1 to IOUT2"},
                        {"Frame16", "IEXC2 Direction"},
                        {"OptIEXC2Iout2", "IEXC2 to IOUT2"},
                        {"OptIEXC2Iout1", "IEXC2 to IOUT1"},
                        {"Frame17", "Burnout Current ON / OFF"},
                        {"OptBurnOff", "Burnout Current OFF"},
                        {"OptBurnOn", "Burnout Current ON"},
                        {"Frame1", "Current Contents of IO Control Register"},
                        {"HeadingLabel", "I/O Control Register"},
                        {"Command2", "&Update Display"},
                        {"Command1", "B&ack"}});
}

}  // namespace
}  // namespace vx3260
