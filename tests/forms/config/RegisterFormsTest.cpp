// SPDX-License-Identifier: GPL-3.0-or-later
#include <bitset>
#include <sstream>

#include "forms/config/AuxControlForm.h"
#include "forms/config/IOControlForm.h"
#include "forms/config/MainControlForm.h"
#include "forms/config/ModeForm.h"
#include "numbers/NumberText.h"
#include "support/Forms.h"

/// What holds for every option button of every register form, as one table.
namespace vx3260::test {
namespace {

struct FieldOptions {
    std::uint32_t mask;
    const char* options;  ///< in the order of their codes; "-" for one that is tested elsewhere
};

struct ShownRegister {
    unsigned address;
    unsigned width;
    std::uint32_t start;
    const char* label;
};

struct FormOptions {
    std::function<std::unique_ptr<Form>(Services&)> open;
    ShownRegister reg;
    std::vector<FieldOptions> fields;
};

template <typename Opened>
std::unique_ptr<Form> Open(Services& services) {
    return std::make_unique<Opened>(services);
}

const std::vector<FormOptions> allForms{
    {Open<ModeForm>,
     {modeAt, 8, 0xA0, "modeLabel"},
     {{0x40, "OptBufOff OptBufOn"},
      {0x10, "OptChConClr OptChConSet"},
      {0x08, "OptOscOn OptOscOff"},
      {0x07, "OptMD0 OptMD1 OptMD2 OptMD3"}}},
    {Open<MainControlForm>,
     {mainControlAt, 8, 0x00, "mainControlLabel"},
     {{0x07, "Opt20 Opt40 Opt80 Opt160 Opt320 Opt640 Opt128 Opt256"},
      {0x30, "OptAIN1_2 OptAIN3_4 OptAIN2_2 OptAIN3_2"},
      {0x08, "OptBipolar OptUnipolar"},
      {0x40, "Opt24 Opt16"},
      {0x80, "OptMainDis OptMainEn"}}},
    {Open<AuxControlForm>,
     {auxControlAt, 8, 0x06, "AuxControlLabel"},
     {{0x70, "OptAIN3_Agnd OptAIN4_Agnd OptAIN5_6 OptTemp OptAGND_AGND"},
      {0x01, "OptREF2 OptREF"},
      {0x08, "OptBipolar OptUnipolar"},
      {0x80, "OptAuxDis OptAuxEn"}}},
    {Open<IOControlForm>,
     // P3 high and P4 low, as they read when they are inputs; bit 13 has no option.
     {ioControlAt, 16, 0x20C4, "IOControlLabel"},
     {{0x1000, "OptBurnOff OptBurnOn"},
      {0x0800, "OptIEXC2Iout2 OptIEXC2Iout1"},
      {0x0400, "OptIEXC1Iout1 OptIEXC1Iout2"},
      {0x0200, "OptIEXC2Off OptIEXC2On"},
      {0x0100, "OptIEXC1Off optIEXC1On"},
      {0x8000, "optP2Out OptP2Power"},
      {0x4000, "OptP1Out OptP1Power"},
      {0x0080, "- OptP4Out"},
      {0x0040, "- OptP3Out"},
      {0x0020, "OptP2Tri OptP2IO"},
      {0x0010, "OptP1Tri OptP1IO"},
      {0x0008, "OptP4Low OptP4High"},
      {0x0004, "optP3Low OptP3High"},
      {0x0002, "OptP2Low optP2High"},
      {0x0001, "OptP1Low OptP1High"}}},
};

/// An option, and the register before and after it is clicked.
struct OptionCase {
    const FormOptions& form;
    std::string name;
    std::string error;
    std::uint32_t before;
    std::uint32_t after;
};

std::vector<OptionCase> AllOptions() {
    std::vector<OptionCase> all;
    for (const FormOptions& form : allForms) {
        for (const auto& [mask, options] : form.fields) {
            const bool capitalP =
                form.reg.address == ioControlAt || (form.reg.address == modeAt && mask != 0x07);
            const std::string error = capitalP ? "Programming" : "programming";
            const std::uint32_t others = form.reg.start & ~mask;
            const std::uint32_t lowestBit = mask & (~mask + 1);
            std::istringstream names(options);
            std::string name;
            for (std::uint32_t code = 0; names >> name; ++code) {
                if (name != "-") {
                    all.push_back({form, name, "Exclamation: Error " + error + " VX3260",
                                   others | ((code ^ 1) * lowestBit), others | (code * lowestBit)});
                }
            }
        }
    }
    return all;
}

void ClickIn(const Form& form, const std::string& option) {
    Find(form, option).setEnabled(true);
    Click(form, option);
}

TEST(RegisterForms, WriteTheirFieldOnlyAndShowWhatWasReadBack) {
    for (const auto& [options, option, error, before, after] : AllOptions()) {
        SCOPED_TRACE(option);
        SimulatedBench bench;
        bench.Chip().Preset(options.reg.address, before);
        const auto form = options.open(*bench.services);
        EXPECT_EQ(bench.Chip().Contents(options.reg.address), before);
        EXPECT_FALSE(Checked(*form, option));
        ClickIn(*form, option);
        EXPECT_EQ(bench.Chip().Contents(options.reg.address), after);
        EXPECT_EQ(TextOf(*form, options.reg.label), HexText(static_cast<std::int32_t>(after)));
        EXPECT_EQ(BitsOf(*form, 1, static_cast<int>(options.reg.width)),
                  std::bitset<16>(after).to_string().substr(16 - options.reg.width));
        EXPECT_EQ(bench.messages.Take(), "");
        EXPECT_EQ(bench.state.FormLoading, 0);
        const std::int64_t accesses = bench.board->Now();
        Click(*form, option);  // selected already: no click
        EXPECT_EQ(bench.board->Now(), accesses);
        EXPECT_TRUE(Checked(*options.open(*bench.services), option));
    }
}

TEST(RegisterForms, ReportABoardThatIsLostBeforeTheReadBack) {
    for (const auto& [options, option, error, before, after] : AllOptions()) {
        SCOPED_TRACE(option);
        SimulatedBench whole;
        whole.Chip().Preset(options.reg.address, before);
        options.open(*whole.services);
        const std::int64_t untilOpen = whole.board->Now() / SimulatedBoard::NanosecondsPerAccess;
        const unsigned readAndWrite =
            (25 + 1 + 3 * options.reg.width) + (25 + 3 * options.reg.width + 1);

        SimulatedBench bench("board-gone=" + std::to_string(untilOpen + readAndWrite));
        bench.Chip().Preset(options.reg.address, before);
        const auto form = options.open(*bench.services);
        const std::string shown = TextOf(*form, options.reg.label);
        ClickIn(*form, option);
        EXPECT_EQ(bench.Chip().Contents(options.reg.address), after);
        EXPECT_EQ(bench.messages.Take(), error);
        const bool stays = options.reg.address == ioControlAt || option == "OptMD1";
        EXPECT_EQ(TextOf(*form, options.reg.label), stays ? shown : "FF");
    }
}

}  // namespace
}  // namespace vx3260::test
