// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ApplicationInfo.h"
#include "forms/shell/StatusForm.h"
#include "forms/shell/aboutform.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

using ShellFormsTest = FormTest;

TEST_F(ShellFormsTest, StatusShowsTheFlagsUnderTheirNames) {
    Open<StatusForm>();
    const std::pair<const char*, const char*> columns[] = {
        {"Label10", "Label1"}, {"Label15", "label4"}, {"Label13", "Label8"}};
    for (const auto& [heading, bit] : columns) {
        EXPECT_EQ(Find(*form, heading).geometry().center().x(),
                  Find(*form, bit).geometry().center().x());
    }
}

TEST_F(ShellFormsTest, AboutShowsItsVersionAndStartsTheSystemsInformationProgram) {
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
        {{{key, ""}, {folder, ""}}, "\\MSINFO32.EXE", {"/usr/bin/info"}, {"/usr/bin/info"}},
        {{}, "", {"/usr/bin/info"}, {"/usr/bin/info"}, false},
    };
    for (const auto& c : cases) {
        UseBoardWith("");
        bench->system.registry = c.registry;
        bench->system.existingFile = c.existing;
        bench->system.desktopProgram = c.desktop;
        bench->system.startsPrograms = c.starts;
        Open<aboutform>();
        const bool started = c.starts && !c.started.empty();
        EXPECT_EQ(ClickOn("cmdSysInfo"),
                  started ? "" : "Plain: System Information Is Unavailable At This Time");
        EXPECT_EQ(bench->system.started, c.started);
    }
    Expect("lblVersion: Version " + std::string(VersionText));
    EXPECT_FALSE(Find<QLabel>(*form, "picIcon").pixmap().isNull());
    ClickOn("cmdOK");
    EXPECT_FALSE(form->isVisible());
}

}  // namespace
}  // namespace vx3260::test
