// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/shell/ProgramForm.h"
#include "forms/shell/ResetForm.h"
#include "forms/shell/StatusForm.h"
#include "forms/shell/aboutform.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

using ShellFormsTest = FormTest;

TEST_F(ShellFormsTest, ProgramOpensTheRegistersForms) {
    Preset(modeAt, 0);
    Open<ProgramForm>();
    TakePicture(*form, "ProgramForm");
    Expect(
        "ProgramForm: VX3260 Evaluation Software - Program Menu | Label1: Program Menu | "
        "Command1: Program &Mode Register | Command2: Program &Filter Register | "
        "Command3: Main A&DC Calibration Registers | "
        "Command4: Program Main Con&trol Register | "
        "Command5: Program &I/O Control Register | Command6: Display &Status Register | "
        "Command8: Program Aux &Control Register | "
        "Command9: A&ux ADC Calibration Registers | Command7: B&ack");
    const std::pair<const char*, const char*> cases[] = {
        {"Command1", "ModeForm: Program Mode Register"},
        {"Command2", "Filterform: Program Filter Register"},
        {"Command3", "MainCalForm: Program Calibration Registers"},
        {"Command4", "MainControlForm: Program Control Register"},
        {"Command5", "IOControlForm: Program I/O Control Register"},
        {"Command6", "StatusForm: Display Status Register"},
        {"Command8", "AuxControlForm: Program Control Register"},
        {"Command9", "AuxCalForm: Program Calibration Registers"},
    };
    for (const auto& [button, opened] : cases) {
        EXPECT_EQ(OpenedBy(*form, button), opened);
    }
    EXPECT_EQ(bench->messages.Take(), "");
    for (std::uint32_t mode = 1; mode <= 7; ++mode) {
        Preset(modeAt, 0xF8U | mode);
        EXPECT_EQ(OpenedBy(*form, "Command2"), "");
        EXPECT_EQ(bench->messages.Take(),
                  "Exclamation: The VX3260 must be in Power-Down Mode in order to program the "
                  "Filter Register");
    }
    ClickOn("Command7");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ShellFormsTest, StatusShowsTheFlagsUnderTheirNames) {
    Preset(modeAt, 0x04);  // calibrating, oscillator locked
    Open<StatusForm>();
    TakePicture(*form, "StatusForm");
    Expect(
        "StatusForm: VX3260 Evaluation Software - Display Status Register | "
        "Frame7: Current Contents of Status Register | Label9: Status Register | "
        "Label10: RDY0 | Label1: 0 | Label16: RDY1 | Label2: 0 | Label11: CAL | Label3: 1 | "
        "Label15: NOXREF | label4: 0 | Label12: ERR0 | Label5: 0 | Label17: ERR1 | "
        "Label6: 0 | Label14: | Label7: 0 | Label13: LOCK | Label8: 1 | Label18: HEX | "
        "StatusLabel: 21 | Command1: B&ack");
    const std::pair<const char*, const char*> columns[] = {
        {"Label10", "Label1"}, {"Label15", "label4"}, {"Label13", "Label8"}};
    for (const auto& [heading, bit] : columns) {
        EXPECT_EQ(Find(*form, heading).geometry().center().x(),
                  Find(*form, bit).geometry().center().x());
    }
}

TEST_F(ShellFormsTest, ResetResetsTheChipAndCloses) {
    const std::pair<const char*, bool> cases[] = {
        {"Command1", true}, {"Command2", true}, {"Command3", false}};
    for (const auto& [button, resets] : cases) {
        UseBoardWith("");
        Open<ResetForm>();
        TakePicture(*form, "ResetForm");
        Expect(
            "ResetForm: VX3260 Evaluation Software - Reset VX3250 | "
            "Label1: Reset VX3260 ? | Command1: &Hardware Reset | "
            "Command2: &Software Reset | Command3: &Cancel");
        const std::int64_t accesses = bench->board->Now();
        ClickOn(button);
        EXPECT_EQ(Contents(modeAt), resets ? 0x00U : 0x03U) << button;
        EXPECT_EQ(Contents(mainControlAt), resets ? 0x07U : 0x87U) << button;
        EXPECT_EQ(bench->board->Now() == accesses, !resets) << button;
        EXPECT_FALSE(form->isVisible());
    }
}

TEST_F(ShellFormsTest, AboutShowsItsTextsAndStartsTheSystemsInformationProgram) {
    const std::string key = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO:PATH";
    const std::string folder = "SOFTWARE\\Microsoft\\Shared Tools Location:MSINFO";
    const struct {
        std::map<std::string, std::string> registry;
        std::string existing;
        std::vector<std::string> desktop;
        std::vector<std::string> started;
        bool starts = true;
    } cases[] = {
        {{{key, "C:\\a.exe"}, {folder, "D:\\m"}}, "", {}, {"C:\\a.exe"}},
        {{{folder, "D:\\m"}}, "D:\\m\\MSINFO32.EXE", {}, {"D:\\m\\MSINFO32.EXE"}},
        {{{folder, "D:\\m"}}, "", {}, {}},
        {{}, "", {"/usr/bin/info"}, {"/usr/bin/info"}},
        {{}, "", {"/usr/bin/info"}, {"/usr/bin/info"}, false},
    };
    for (const auto& c : cases) {
        UseBoardWith("");
        bench->system.registry = c.registry;
        bench->system.existingFile = c.existing;
        bench->system.desktopProgram = c.desktop;
        bench->system.startsPrograms = c.starts;
        Open<aboutform>();
        EXPECT_EQ(ClickOn("cmdSysInfo"),
                  c.starts && !c.started.empty()
                      ? ""
                      : "Plain: System Information Is Unavailable At This Time");
        EXPECT_EQ(bench->system.started, c.started);
    }
    TakePicture(*form, "aboutform");
    Expect(
        "aboutform: About VX3260 Evaluation Software | "
        "lblTitle: VX3260 Evaluation Software | lblVersion: Version 1.0.0 | "
        "cmdSysInfo: &System Info...");
    EXPECT_FALSE(Find<QLabel>(*form, "picIcon").pixmap().isNull());
    ClickOn("cmdOK");
    EXPECT_FALSE(form->isVisible());
}

}  // namespace
}  // namespace vx3260::test
