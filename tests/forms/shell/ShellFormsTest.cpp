#include <gtest/gtest.h>

#include <QPushButton>

#include "app/ApplicationInfo.h"
#include "forms/shell/ProgramForm.h"
#include "forms/shell/ResetForm.h"
#include "forms/shell/StatusForm.h"
#include "forms/shell/aboutform.h"
#include "support/Forms.h"
#include "support/Pictures.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

QString OpenedBy(const Form& form, const char* button) {
    QString title;
    WhileModal([&] { Find<QPushButton>(form, button).click(); },
               [&](QDialog& opened) { title = opened.windowTitle(); });
    return title;
}

TEST(ProgramForm, OpensTheRegistersForms) {
    SimulatedBench bench;
    bench.Chip().Preset(modeAt, 0);
    const ProgramForm form(*bench.services);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("VX3260 Evaluation Software - Program Menu"));
    EXPECT_EQ(Find<QLabel>(form, "Label1").text(), QStringLiteral("Program Menu"));
    const QString program = QStringLiteral("VX3260 Evaluation Software - Program ");
    const struct {
        const char* button;
        const char* caption;
        QString opens;
    } cases[] = {
        {"Command1", "Program &Mode Register", program + QStringLiteral("Mode Register")},
        {"Command2", "Program &Filter Register",
         QStringLiteral("VX3260 - Program Filter Register")},
        {"Command3", "Main A&DC Calibration Registers",
         program + QStringLiteral("Calibration Registers")},
        {"Command4", "Program Main Con&trol Register",
         program + QStringLiteral("Control Register")},
        {"Command5", "Program &I/O Control Register",
         program + QStringLiteral("I/O Control Register")},
        {"Command6", "Display &Status Register",
         QStringLiteral("VX3260 Evaluation Software - Display Status Register")},
        {"Command8", "Program Aux &Control Register", program + QStringLiteral("Control Register")},
        {"Command9", "A&ux ADC Calibration Registers",
         program + QStringLiteral("Calibration Registers")},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Find<QPushButton>(form, c.button).text(), QString::fromLatin1(c.caption));
        EXPECT_EQ(OpenedBy(form, c.button), c.opens) << c.button;
    }
    EXPECT_EQ(Find<QPushButton>(form, "Command7").text(), QStringLiteral("B&ack"));
    EXPECT_TRUE(bench.messages.shown.empty());
}

TEST(ProgramForm, KeepsTheFilterFormForPowerDown) {
    SimulatedBench bench;
    ProgramForm form(*bench.services);
    form.show();
    TakePicture(form, "ProgramForm");
    for (std::uint32_t mode = 1; mode <= 7; ++mode) {
        bench.Chip().Preset(modeAt, 0xF8U | mode);
        bench.messages.shown.clear();
        EXPECT_EQ(OpenedBy(form, "Command2"), QString());
        EXPECT_EQ(bench.messages.Texts(),
                  std::vector<std::string>{"The VX3260 must be in Power-Down Mode in order to "
                                           "program the Filter Register"});
        EXPECT_EQ(bench.messages.shown[0].icon, MessageIcon::Exclamation);
    }
    Find<QPushButton>(form, "Command7").click();
    EXPECT_FALSE(form.isVisible());
}

TEST(StatusForm, ShowsTheFlagsUnderTheirNames) {
    SimulatedBench bench;
    bench.Chip().Preset(modeAt, 0x04);  // calibrating, oscillator locked
    StatusForm form(*bench.services);
    TakePicture(form, "StatusForm");
    EXPECT_EQ(form.windowTitle(),
              QStringLiteral("VX3260 Evaluation Software - Display Status Register"));
    ExpectTexts(form, {{"Frame7", "Current Contents of Status Register"},
                       {"Label9", "Status Register"},
                       {"Label10", "RDY0"},
                       {"Label1", "0"},
                       {"Label16", "RDY1"},
                       {"Label2", "0"},
                       {"Label11", "CAL"},
                       {"Label3", "1"},
                       {"Label15", "NOXREF"},
                       {"label4", "0"},
                       {"Label12", "ERR0"},
                       {"Label5", "0"},
                       {"Label17", "ERR1"},
                       {"Label6", "0"},
                       {"Label14", ""},
                       {"Label7", "0"},
                       {"Label13", "LOCK"},
                       {"Label8", "1"},
                       {"Label18", "HEX"},
                       {"StatusLabel", "21"},
                       {"Command1", "B&ack"}});
    const char* const columns[][2] = {
        {"Label10", "Label1"}, {"Label15", "label4"}, {"Label13", "Label8"}};
    form.show();
    for (const auto& [heading, bit] : columns) {
        EXPECT_EQ(Find<QLabel>(form, heading).geometry().center().x(),
                  Find<QLabel>(form, bit).geometry().center().x());
    }
}

TEST(ResetForm, ResetsTheChipAndCloses) {
    for (const char* button : {"Command1", "Command2"}) {
        SimulatedBench bench;
        ResetForm form(*bench.services);
        form.show();
        TakePicture(form, "ResetForm");
        EXPECT_EQ(form.windowTitle(), QStringLiteral("VX3260 Evaluation Software - Reset VX3250"));
        ExpectTexts(form, {{"Label1", "Reset VX3260 ?"},
                           {"Command1", "&Hardware Reset"},
                           {"Command2", "&Software Reset"},
                           {"Command3", "&Cancel"}});
        Find<QPushButton>(form, button).click();
        EXPECT_EQ(bench.Chip().Contents(modeAt), 0x00U) << button;
        EXPECT_EQ(bench.Chip().Contents(mainControlAt), 0x07U) << button;
        EXPECT_FALSE(form.isVisible());
    }
    SimulatedBench bench;
    ResetForm form(*bench.services);
    form.show();
    const std::int64_t accesses = bench.board->Now();
    Find<QPushButton>(form, "Command3").click();
    EXPECT_EQ(bench.board->Now(), accesses);
    EXPECT_FALSE(form.isVisible());
}

TEST(AboutForm, ShowsTitleAndVersion) {
    SimulatedBench bench;
    aboutform form(*bench.services);
    TakePicture(form, "aboutform");
    EXPECT_EQ(form.windowTitle(), QStringLiteral("About VX3260 Evaluation Software"));
    ExpectTexts(form, {{"lblTitle", "VX3260 Evaluation Software"},
                       {"lblVersion", "Version 1.0.0"},
                       {"cmdSysInfo", "&System Info..."}});
    EXPECT_FALSE(Find<QLabel>(form, "picIcon").pixmap().isNull());
    form.show();
    Find<QPushButton>(form, "cmdOK").click();
    EXPECT_FALSE(form.isVisible());
}

TEST(AboutForm, StartsTheSystemsInformationProgram) {
    const std::string key = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO:PATH";
    const std::string folder = "SOFTWARE\\Microsoft\\Shared Tools Location:MSINFO";
    const struct {
        std::map<std::string, std::string> registry;
        const char* existing;
        std::vector<std::string> desktop;
        bool starts;
        const char* started;
        std::size_t messages;
    } cases[] = {
        {{{key, "C:\\a.exe"}, {folder, "D:\\m"}}, "", {}, true, "C:\\a.exe", 0},
        {{{folder, "D:\\m"}}, "D:\\m\\MSINFO32.EXE", {}, true, "D:\\m\\MSINFO32.EXE", 0},
        {{{folder, "D:\\m"}}, "", {}, true, "", 1},
        {{}, "", {"/usr/bin/info"}, true, "/usr/bin/info", 0},
        {{}, "", {"/usr/bin/info"}, false, "/usr/bin/info", 1},
        {{}, "", {}, true, "", 1},
    };
    for (const auto& c : cases) {
        SimulatedBench bench;
        bench.system.registry = c.registry;
        bench.system.existingFile = c.existing;
        bench.system.desktopProgram = c.desktop;
        bench.system.startsPrograms = c.starts;
        const aboutform form(*bench.services);
        Find<QPushButton>(form, "cmdSysInfo").click();
        EXPECT_EQ(bench.system.started.empty() ? "" : bench.system.started[0], c.started);
        ASSERT_EQ(bench.messages.shown.size(), c.messages) << c.started;
        if (c.messages == 1) {
            EXPECT_EQ(bench.messages.shown[0].text,
                      "System Information Is Unavailable At This Time");
            EXPECT_EQ(bench.messages.shown[0].icon, MessageIcon::None);
        }
    }
}

}  // namespace
}  // namespace vx3260
