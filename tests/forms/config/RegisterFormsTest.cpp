#include <gtest/gtest.h>

#include <QRadioButton>
#include <memory>
#include <vector>

#include "forms/config/AuxControlForm.h"
#include "forms/config/IOControlForm.h"
#include "forms/config/MainControlForm.h"
#include "forms/config/ModeForm.h"
#include "support/Forms.h"
#include "support/Pictures.h"
#include "support/SimulatedBench.h"

// What holds for every option button of every register form, as one table.

namespace vx3260 {
namespace {

using namespace test;

struct Row {
    const char* option;
    std::uint32_t mask;
    std::uint32_t bits;
};

struct FormRows {
    const char* name;
    std::function<std::unique_ptr<Form>(Services&)> open;
    unsigned address;
    int width;
    std::uint32_t start;
    const char* valueLabel;
    std::vector<Row> rows;
};

template <typename Opened>
std::unique_ptr<Form> Open(Services& services) {
    return std::make_unique<Opened>(services);
}

const std::vector<FormRows>& AllForms() {
    static const std::vector<FormRows> forms{
        {"ModeForm",
         Open<ModeForm>,
         modeAt,
         8,
         0xA0,
         "modeLabel",
         {{"OptBufOn", 0x40, 0x40},
          {"OptBufOff", 0x40, 0x00},
          {"OptChConSet", 0x10, 0x10},
          {"OptChConClr", 0x10, 0x00},
          {"OptOscOff", 0x08, 0x08},
          {"OptOscOn", 0x08, 0x00},
          {"OptMD0", 0x07, 0x00},
          {"OptMD1", 0x07, 0x01},
          {"OptMD2", 0x07, 0x02},
          {"OptMD3", 0x07, 0x03}}},
        {"MainControlForm",
         Open<MainControlForm>,
         mainControlAt,
         8,
         0x00,
         "mainControlLabel",
         {{"Opt20", 0x07, 0x00},
          {"Opt40", 0x07, 0x01},
          {"Opt80", 0x07, 0x02},
          {"Opt160", 0x07, 0x03},
          {"Opt320", 0x07, 0x04},
          {"Opt640", 0x07, 0x05},
          {"Opt128", 0x07, 0x06},
          {"Opt256", 0x07, 0x07},
          {"OptAIN1_2", 0x30, 0x00},
          {"OptAIN3_4", 0x30, 0x10},
          {"OptAIN2_2", 0x30, 0x20},
          {"OptAIN3_2", 0x30, 0x30},
          {"OptUnipolar", 0x08, 0x08},
          {"OptBipolar", 0x08, 0},
          {"Opt16", 0x40, 0x40},
          {"Opt24", 0x40, 0x00},
          {"OptMainEn", 0x80, 0x80},
          {"OptMainDis", 0x80, 0x00}}},
        {"AuxControlForm",
         Open<AuxControlForm>,
         auxControlAt,
         8,
         0x06,
         "AuxControlLabel",
         {{"OptAIN3_Agnd", 0x70, 0x00},
          {"OptAIN4_Agnd", 0x70, 0x10},
          {"OptAIN5_6", 0x70, 0x20},
          {"OptTemp", 0x70, 0x30},
          {"OptAGND_AGND", 0x70, 0x40},
          {"OptREF", 0x01, 0x01},
          {"OptREF2", 0x01, 0x00},
          {"OptUnipolar", 0x08, 0x08},
          {"OptBipolar", 0x08, 0x00},
          {"OptAuxEn", 0x80, 0x80},
          {"OptAuxDis", 0x80, 0x00}}},
        {"IOControlForm",
         Open<IOControlForm>,
         ioControlAt,
         16,
         0x20C4,  // P3 high and P4 low, as they read when they are inputs; bit 13 is nobody's
         "IOControlLabel",
         {{"OptBurnOn", 0x1000, 0x1000},     {"OptBurnOff", 0x1000, 0},
          {"OptIEXC2Iout1", 0x0800, 0x0800}, {"OptIEXC2Iout2", 0x0800, 0},
          {"OptIEXC1Iout2", 0x0400, 0x0400}, {"OptIEXC1Iout1", 0x0400, 0},
          {"OptIEXC2On", 0x0200, 0x0200},    {"OptIEXC2Off", 0x0200, 0},
          {"optIEXC1On", 0x0100, 0x0100},    {"OptIEXC1Off", 0x0100, 0},
          {"OptP2Power", 0x8000, 0x8000},    {"optP2Out", 0x8000, 0},
          {"OptP1Power", 0x4000, 0x4000},    {"OptP1Out", 0x4000, 0},
          {"OptP4Out", 0x0080, 0x0080},      {"OptP3Out", 0x0040, 0x0040},
          {"OptP2IO", 0x0020, 0x0020},       {"OptP2Tri", 0x0020, 0},
          {"OptP1IO", 0x0010, 0x0010},       {"OptP1Tri", 0x0010, 0},
          {"OptP4High", 0x0008, 0x0008},     {"OptP4Low", 0x0008, 0},
          {"OptP3High", 0x0004, 0x0004},     {"optP3Low", 0x0004, 0},
          {"optP2High", 0x0002, 0x0002},     {"OptP2Low", 0x0002, 0},
          {"OptP1High", 0x0001, 0x0001},     {"OptP1Low", 0x0001, 0}}},
    };
    return forms;
}

/// The small "p" of the mode options and both control forms.
std::string ErrorOf(const FormRows& form, const Row& row) {
    const std::string name = form.name;
    const bool smallP = name.ends_with("ControlForm") && name != "IOControlForm";
    const bool modeOption = std::string(row.option).starts_with("OptMD");
    return smallP || modeOption ? "Error programming VX3260" : "Error Programming VX3260";
}

/// A register in which the row's option is not selected yet.
std::uint32_t StartOf(const FormRows& form, const Row& row) {
    const std::uint32_t lowestBit = row.mask & (~row.mask + 1);
    return (form.start & ~row.mask) | (row.bits ^ lowestBit);
}

QString Hex(std::uint32_t value) {
    return QString::number(value, 16).toUpper();
}

TEST(RegisterForms, WriteTheirFieldOnlyAndShowWhatWasReadBack) {
    for (const FormRows& form : AllForms()) {
        for (const Row& row : form.rows) {
            SimulatedBench bench;
            const std::uint32_t start = StartOf(form, row);
            const std::uint32_t wanted = (start & ~row.mask) | row.bits;
            bench.Chip().Preset(form.address, start);
            const auto opened = form.open(*bench.services);
            EXPECT_EQ(bench.Chip().Contents(form.address), start) << row.option;
            auto& option = Find<QRadioButton>(*opened, row.option);
            EXPECT_FALSE(option.isChecked()) << row.option;
            option.setEnabled(true);
            option.click();
            EXPECT_EQ(bench.Chip().Contents(form.address), wanted) << row.option;
            EXPECT_EQ(Find<QLabel>(*opened, form.valueLabel).text(), Hex(wanted)) << row.option;
            for (int bit = 0; bit < form.width; ++bit) {
                const std::string label = "Label" + std::to_string(form.width - bit);
                EXPECT_EQ(Find<QLabel>(*opened, label.c_str()).text(),
                          (wanted >> bit & 1U) != 0 ? QStringLiteral("1") : QStringLiteral("0"))
                    << row.option << " bit " << bit;
            }
            EXPECT_TRUE(bench.messages.shown.empty()) << row.option;
            EXPECT_EQ(bench.state.FormLoading, 0);
            const std::int64_t accesses = bench.board->Now();
            option.click();  // selected already: no click
            EXPECT_EQ(bench.board->Now(), accesses) << row.option;
        }
    }
}

TEST(RegisterForms, SelectWhatTheChipHolds) {
    for (const FormRows& form : AllForms()) {
        for (const Row& row : form.rows) {
            SimulatedBench bench;
            bench.Chip().Preset(form.address, (form.start & ~row.mask) | row.bits);
            const auto opened = form.open(*bench.services);
            EXPECT_TRUE(Find<QRadioButton>(*opened, row.option).isChecked()) << row.option;
            TakePicture(*opened, form.name);
        }
    }
}

TEST(RegisterForms, TellWhenTheReadBackDiffers) {
    struct {
        const char* fault;
        std::uint32_t reads;
    } const faults[] = {
        {"dout-stuck-high", 0xFFFF}, {"dout-stuck-low", 0}, {"board-gone=0", 0xFFFF}};
    for (const FormRows& form : AllForms()) {
        for (const Row& row : form.rows) {
            bool clicked = false;
            for (const auto& fault : faults) {
                Faults wires;
                AddFault(fault.fault, wires);
                SimulatedBench bench(wires);
                const auto opened = form.open(*bench.services);
                auto& option = Find<QRadioButton>(*opened, row.option);
                const QString before = Find<QLabel>(*opened, form.valueLabel).text();
                if (option.isChecked()) {
                    continue;
                }
                clicked = true;
                option.setEnabled(true);
                option.click();
                ASSERT_EQ(bench.messages.Texts(), std::vector<std::string>{ErrorOf(form, row)})
                    << row.option << ' ' << fault.fault;
                EXPECT_EQ(bench.messages.shown[0].icon, MessageIcon::Exclamation);
                const bool stays =
                    form.address == ioControlAt || row.option == std::string("OptMD1");
                const QString after = Find<QLabel>(*opened, form.valueLabel).text();
                EXPECT_EQ(after, stays ? before : Hex(fault.reads & 0xFFU)) << row.option;
            }
            EXPECT_TRUE(clicked) << row.option;
        }
    }
}

TEST(RegisterForms, KeepWhatWasWrittenWhenTheBoardIsLostBeforeTheReadBack) {
    for (const FormRows& form : AllForms()) {
        for (const Row& row : form.rows) {
            const std::uint32_t start = StartOf(form, row);
            SimulatedBench whole;
            whole.Chip().Preset(form.address, start);
            form.open(*whole.services);
            const std::int64_t untilOpen =
                whole.board->Now() / SimulatedBoard::NanosecondsPerAccess;
            const int readCost = 25 + 1 + 3 * form.width;
            const int writeCost = 25 + 3 * form.width + 1;

            Faults wires;
            wires.goneAfter = untilOpen + readCost + writeCost;
            SimulatedBench bench(wires);
            bench.Chip().Preset(form.address, start);
            const auto opened = form.open(*bench.services);
            auto& option = Find<QRadioButton>(*opened, row.option);
            option.setEnabled(true);
            option.click();
            const std::uint32_t wanted = (start & ~row.mask) | row.bits;
            EXPECT_EQ(bench.Chip().Contents(form.address), wanted) << row.option;
            EXPECT_EQ(bench.messages.Texts(), std::vector<std::string>{ErrorOf(form, row)})
                << row.option;
        }
    }
}

}  // namespace
}  // namespace vx3260
