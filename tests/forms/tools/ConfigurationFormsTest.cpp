// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QFileDialog>
#include <QTableWidget>
#include <random>

#include "forms/shell/RegisterForms.h"
#include "forms/tools/CompareConfigurationForm.h"
#include "forms/tools/RegisterOverviewForm.h"
#include "forms/tools/SaveConfigurationForm.h"
#include "support/Folder.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

class ConfigurationFormsTest : public FormTest {
  protected:
    /// The table's rows that have a text in the last column, as "register field: left, right".
    std::string Rows(const char* table) {
        auto& widget = Find<QTableWidget>(*form, table);
        std::string text;
        for (int row = 0; row < widget.rowCount(); ++row) {
            for (int column = 0; column < widget.columnCount(); ++column) {
                text += (column == 0 ? "" : " ") + widget.item(row, column)->text().toStdString();
            }
            text += "\n";
        }
        return text;
    }
    /// Clicks a button that asks for a file, and chooses this one.
    void Choose(const char* button, const std::string& name) {
        WhileModal([&] { Click(*form, button); },
                   [&](QDialog& asked) {
                       auto& dialog = dynamic_cast<QFileDialog&>(asked);
                       dialog.selectFile(QString::fromStdString(folder.Path(name)));
                       asked.accept();
                   });
    }
    void SaveAs(const char* option, const std::string& name) {
        Open<SaveConfigurationForm>(&path);
        Click(*form, option);
        Choose("SaveButton", name);
        EXPECT_EQ(TextOf(*form, "ResultLabel"), "Wrote " + folder.Path(name));
    }

    Folder folder;
    QString path;
};

TEST_F(ConfigurationFormsTest, SavesComparesAndRestores) {
    SaveAs("OptConfiguration", "a.vx3260");
    Preset(mainControlAt, 0x88);
    Preset(ioControlAt, 0x1000);
    bench->port->writes.clear();
    Open<CompareConfigurationForm>(&path);
    EXPECT_FALSE(Find(*form, "RestoreButton").isEnabled());
    EXPECT_EQ(ClickOn("CompareButton"), "");
    const std::string differences =
        "main-control polarity bipolar unipolar\nmain-control range 2.56V 20mV\n"
        "io-control burnout off on\n";
    EXPECT_EQ(Rows("DifferencesTable"), differences);
    Expect("ResultLabel: 3 fields differ.");
    EXPECT_TRUE(bench->port->writes.empty());
    EXPECT_EQ(ClickOn("RestoreButton"), "");
    Expect("ResultLabel: 5 registers written, all verified.");
    EXPECT_EQ(Rows("DifferencesTable"), "");
    EXPECT_EQ(Contents(mainControlAt), 0x87U);
    EXPECT_EQ(Contents(modeAt), 0x03U);
    EXPECT_EQ(Contents(ioControlAt) & 0xFFF3U, 0U);

    folder.Make("b.vx3260", folder.Bytes("a.vx3260") + "set filter word=255\n");
    Click(*form, "OptOther");
    EXPECT_EQ(Enter("OtherText", folder.Path("b.vx3260")), "");
    EXPECT_EQ(Rows("DifferencesTable"), "filter word 69 255\n");
    EXPECT_FALSE(Find(*form, "RestoreButton").isEnabled());
}

TEST_F(ConfigurationFormsTest, RestoresAnySettings) {
    std::mt19937 random{16};
    const std::pair<unsigned, std::uint32_t> bits[] = {
        {modeAt, 0x59}, {mainControlAt, 0xFF}, {auxControlAt, 0xF9}, {ioControlAt, 0xDF33}};
    const auto shuffle = [&] {
        for (const auto& [address, mask] : bits) {
            Preset(address, static_cast<std::uint32_t>(random()) & mask);
        }
        Preset(filterAt, 13 + static_cast<std::uint32_t>(random() % 243));
    };
    const auto contents = [&] {
        std::vector<std::uint32_t> held{Contents(filterAt)};
        for (const auto& [address, mask] : bits) {
            held.push_back(Contents(address) & mask);
        }
        return held;
    };
    for (int round = 0; round < 5; ++round) {
        shuffle();
        const std::vector<std::uint32_t> before = contents();
        SaveAs("OptConfiguration", "random" + std::to_string(round) + ".vx3260");
        shuffle();
        Open<CompareConfigurationForm>(&path);
        EXPECT_EQ(ClickOn("CompareButton"), "");
        EXPECT_NE(Rows("DifferencesTable"), "");
        EXPECT_EQ(ClickOn("RestoreButton"), "");
        EXPECT_EQ(Rows("DifferencesTable"), "");
        EXPECT_EQ(contents(), before);
    }
}

TEST_F(ConfigurationFormsTest, ExportsForFirmware) {
    const std::array<std::string, 3> exports[] = {
        {"OptHeader", "export.h", "    {0x04, 8, 0x45},\n"},
        {"OptJson", "export.json", "\"writes\": [\n"},
        {"OptCsv", "export.csv", "2,filter,0x04,8,0x45,word=69\n"}};
    for (const auto& [option, name, part] : exports) {
        SaveAs(option.c_str(), name);
        EXPECT_NE(folder.Bytes(name).find(part), std::string::npos) << option;
    }
    EXPECT_TRUE(path.isEmpty());
}

TEST_F(ConfigurationFormsTest, WritesNothingOfAFileOrToABoardThatIsNotGood) {
    SaveAs("OptConfiguration", "a.vx3260");
    const std::string good = folder.Bytes("a.vx3260");
    folder.Make("a.vx3260", good + "set filter word=12\n");
    Open<CompareConfigurationForm>(&path);
    EXPECT_NE(ClickOn("CompareButton").find("'12' is not a valid value for word"),
              std::string::npos);
    folder.Make("a.vx3260", good);
    EXPECT_EQ(ClickOn("CompareButton"), "");
    // What was shown is written, whatever the file holds by now.
    folder.Make("a.vx3260", good + "set filter word=255\n");
    EXPECT_EQ(ClickOn("RestoreButton"), "");
    EXPECT_EQ(Contents(filterAt), 69U);

    folder.Make("a.vx3260", good);
    UseBoardWith("dout-stuck-high");
    bench->port->writes.clear();
    Open<CompareConfigurationForm>(&path);
    EXPECT_EQ(ClickOn("CompareButton"), "Exclamation: The board does not answer");
    EXPECT_FALSE(Find(*form, "RestoreButton").isEnabled());
    Open<SaveConfigurationForm>(&path);
    EXPECT_EQ(ClickOn("SaveButton"), "Exclamation: The board does not answer");

    UseBoardWith("bit-flip=97");
    Preset(mainControlAt, 0x82);
    Open<CompareConfigurationForm>(&path);
    ClickOn("CompareButton");
    EXPECT_EQ(ClickOn("RestoreButton"),
              "Critical: the registers read differently each time; check the cable");
    EXPECT_EQ(Contents(mainControlAt), 0x82U);
}

TEST_F(ConfigurationFormsTest, OverviewMarksChangesAndDifferences) {
    SaveAs("OptConfiguration", "a.vx3260");
    std::vector<std::string> opened;
    Open<RegisterOverviewForm>(
        [&](const RegisterMap::RegisterDescription& description, QWidget* /*parent*/) {
            opened.emplace_back(description.name);
            Preset(mainControlAt, 0x80);
        });
    bench->port->writes.clear();
    const auto at = [&](const char* field, int column) {
        auto& table = Find<QTableWidget>(*form, "RegistersTable");
        std::string found;
        for (int row = 0; row < table.rowCount() && found.empty(); ++row) {
            if (table.item(row, 3)->text() == QLatin1String(field)) {
                table.setCurrentCell(row, 0);
                found = table.item(row, column)->text().toStdString();
            }
        }
        return found;
    };
    EXPECT_EQ(at("buffering", 0) + " " + at("buffering", 1) + " " + at("buffering", 2),
              "mode 0x03 0000 0011");
    EXPECT_EQ(at("word", 4), "69 (19.7874 Hz)");
    EXPECT_EQ(at("range", 4), "2.56V");
    Click(*form, "OpenButton");
    EXPECT_EQ(opened, std::vector<std::string>{"main-control"});
    EXPECT_EQ(at("range", 4), "20mV, was 2.56V");
    EXPECT_EQ(at("word", 4), "69 (19.7874 Hz)");
    Choose("CompareButton", "a.vx3260");
    EXPECT_EQ(at("range", 5), "2.56V");
    EXPECT_TRUE(TextOf(*form, "StatusLabel").ends_with(": 1; other than in the file: 1"));
    Click(*form, "RefreshButton");
    EXPECT_EQ(at("range", 4), "20mV");
    Click(*form, "CopyButton");
    const std::string copied = QGuiApplication::clipboard()->text().toStdString();
    EXPECT_NE(copied.find("range            20mV             2.56V\n"), std::string::npos)
        << copied;
    EXPECT_TRUE(bench->port->writes.empty());
}

TEST_F(ConfigurationFormsTest, OpensTheFormOfEachRegister) {
    std::string names;
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        WhileModal([&] { OpenRegisterForm(*bench->services, description, nullptr); },
                   [&](QDialog& opened) { names += opened.objectName().toStdString() + " "; });
    }
    EXPECT_EQ(names,
              "StatusForm ModeForm MainControlForm AuxControlForm IOControlForm MainCalForm "
              "AuxCalForm MainCalForm AuxCalForm ");
    EXPECT_NE(bench->messages.Take().find("Power"), std::string::npos);
}

}  // namespace
}  // namespace vx3260::test
