// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/CharacteriseForm.h"

#include <QComboBox>
#include <QFileDialog>
#include <QListWidget>
#include <QTableWidget>
#include <cmath>

#include "characterisation/Tables.h"
#include "forms/tools/NoiseTableWidget.h"
#include "forms/tools/ReportPdf.h"
#include "support/Folder.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

const std::string restored = "All registers are as they were before, verified";

class CharacteriseFormTest : public FormTest {
  protected:
    /// Ranges 20mV and 2.56V, bipolar, at two rates, with few codes.
    void Open() {
        FormTest::Open<CharacteriseForm>();
        auto& ranges = Find<QListWidget>(*form, "RangesList");
        Click(*form, "NoneButton");
        ranges.item(0)->setCheckState(Qt::Checked);
        ranges.item(ranges.count() - 1)->setCheckState(Qt::Checked);
        Box("WordsText").setText("13, 20");
        Box("CountText").setText("50");
        Box("FolderText").setText(QString::fromStdString(results));
    }
    QTableWidget& Table() { return Find<QTableWidget>(*form, "BipolarTable"); }
    std::string Cell(int line, int column) {
        return Table().item(line, column)->text().toStdString();
    }
    void ExpectState(const std::string& text) {
        EXPECT_TRUE(Shown("StateLabel").find(text) != std::string::npos) << Shown("StateLabel");
    }
    std::string Shown(const char* label) { return TextOf(*form, label); }
    bool Exists(const char* name) { return QFile::exists(File(name)); }
    QString File(const char* name) { return QString::fromStdString(folder.Path(name)); }

    /// Runs `act` from the event loop once the first setting in that line is being measured.
    void DuringSetting(int line, const std::function<void()>& act) {
        auto* const timer = new QTimer(form.get());
        QObject::connect(timer, &QTimer::timeout, form.get(), [this, timer, line, act] {
            if (Table().item(line, 0) != nullptr && Cell(line, 0).ends_with(" %")) {
                timer->deleteLater();
                act();
            }
        });
        timer->start(0);
    }
    void SaveReportAs(const char* name, int filter) {
        WhileModal([&] { Click(*form, "ReportButton"); },
                   [&](QDialog& asked) {
                       auto& dialog = dynamic_cast<QFileDialog&>(asked);
                       const QString chosen = dialog.nameFilters().at(filter);
                       dialog.selectNameFilter(chosen);
                       emit dialog.filterSelected(chosen);
                       dialog.selectFile(File(name));
                       asked.accept();
                   });
    }

    Folder folder;
    std::string results = folder.Path("results");
};

TEST_F(CharacteriseFormTest, FillsTableAndFolder) {
    Preset(mainControlAt, 0x25);
    Preset(filterAt, 0x45);
    Open();
    Expect(
        "EstimateLabel: 4 settings with 50 codes each, after 4 to settle; 0:03 at the chip's "
        "rates");
    EXPECT_EQ(ClickOn("StartButton"), "");
    ExpectState("Complete. " + restored + ".");
    EXPECT_EQ(Contents(mainControlAt), 0x25U);
    EXPECT_EQ(Contents(filterAt), 0x45U);
    const CharacterisationResults saved = LoadResults(results);
    ASSERT_EQ(saved.rows.size(), 4U);
    for (const int choice : {0, 1}) {
        Find<QComboBox>(*form, "TableBox").setCurrentIndex(choice);
        const NoiseTable table =
            (choice == 0 ? RmsTable : ResolutionTable)(saved, Polarity::Bipolar);
        for (const int line : {0, 1}) {
            for (const int column : {0, 1}) {
                const TableCell& cell = table.lines.at(static_cast<std::size_t>(line))
                                            .cells.at(static_cast<std::size_t>(column));
                EXPECT_EQ(Cell(line, column), cell.text + (cell.remarks.empty() ? "" : "*"));
            }
        }
    }
    EXPECT_TRUE(Exists("results/report.html"));
    EXPECT_TRUE(Exists("results/bipolar-2.56V-20.dat.json"));
}

TEST_F(CharacteriseFormTest, RefusesEntriesThatCannotBeUsed) {
    Open();
    const struct {
        const char* edit;
        const char* text;
        const char* message;
    } cases[] = {
        {"WordsText", "13, 12", "Critical: Overflow"},
        {"WordsText", "13 a", "Critical: Type mismatch"},
        {"WordsText", " ", "Critical: Type mismatch"},
        {"CountText", "9", "Critical: Overflow"},
        {"SettleText", "-1", "Critical: Overflow"},
        {"FolderText", " ",
         "Exclamation: Enter the name of a folder, or choose one with \"Browse...\""},
    };
    for (const auto& [edit, text, message] : cases) {
        const QString before = Box(edit).text();
        Box(edit).setText(QString::fromUtf8(text));
        EXPECT_EQ(ClickOn("StartButton"), message) << text;
        Box(edit).setText(before);
    }
    Click(*form, "NoneButton");
    EXPECT_EQ(ClickOn("StartButton"), "Critical: Choose one range or more");
    Click(*form, "OptAux");
    Expect(
        "EstimateLabel: 4 settings with 50 codes each, after 4 to settle; 0:03 at the chip's "
        "rates");
    EXPECT_FALSE(Exists("results"));
    EXPECT_TRUE(bench->port->writes.empty());
}

TEST_F(CharacteriseFormTest, StopKeepsWhatIsDoneAndResumes) {
    Preset(filterAt, 0x45);
    for (const bool closes : {false, true}) {
        Open();
        Box("CountText").setText("1000");
        DuringSetting(1, [&] {
            EXPECT_FALSE(Find(*form, "StartButton").isEnabled());
            if (closes) {
                form->close();
            } else {
                Click(*form, "StopButton");
            }
            EXPECT_TRUE(form->isVisible());
        });
        bench->messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
        ClickOn("StartButton");
        EXPECT_EQ(form->isVisible(), !closes);
        ExpectState("Stopped");
        ExpectState(restored);
        EXPECT_EQ(Contents(filterAt), 0x45U);
        EXPECT_EQ(LoadResults(results).rows.size(), 2U);
    }
    bench->messages.answers = {MessageAnswer::Yes};
    const std::string first = folder.Bytes("results/bipolar-20mV-13.dat");
    form->show();
    EXPECT_EQ(ClickOn("StartButton"),
              "Question yes or no: The folder holds a characterisation of the same "
              "settings.\r\n\r\nGo on with what is left of it ?");
    EXPECT_EQ(LoadResults(results).rows.size(), 4U);
    EXPECT_EQ(folder.Bytes("results/bipolar-20mV-13.dat"), first);
    ExpectState("Complete");
}

TEST_F(CharacteriseFormTest, AsksBeforeItReplacesAnything) {
    Open();
    ClickOn("StartButton");
    Box("CountText").setText("60");
    bench->messages.answers = {MessageAnswer::No};
    const std::string before = folder.Bytes("results/characterisation.json");
    EXPECT_EQ(ClickOn("StartButton"),
              "Exclamation yes or no: The folder holds a characterisation of other "
              "settings.\r\n\r\nReplace it ?");
    EXPECT_EQ(folder.Bytes("results/characterisation.json"), before);
    bench->messages.answers = {MessageAnswer::Yes};
    ClickOn("StartButton");
    EXPECT_EQ(LoadResults(results).plan.count, 60);

    folder.Make("results/characterisation.json", "{}");
    bench->messages.answers = {MessageAnswer::No};
    EXPECT_TRUE(ClickOn("StartButton").starts_with("Exclamation yes or no: "));
    Box("FolderText").setText(File(""));
    bench->messages.answers = {MessageAnswer::No};
    EXPECT_TRUE(
        ClickOn("StartButton").starts_with("Exclamation yes or no: The folder is not empty"));
}

TEST_F(CharacteriseFormTest, ShowsFailuresAndABoardThatIsGone) {
    UseBoardWith("no-data-ready");
    Open();
    EXPECT_EQ(ClickOn("StartButton"), "");
    EXPECT_EQ(Cell(1, 1), "failed*");
    EXPECT_EQ(Table().item(1, 1)->toolTip(),
              QStringLiteral("time-out: no data-ready for result 1 of 4"));
    ExpectState("Complete; 4 settings failed. " + restored);
    bench->messages.shown.clear();
    Table().setCurrentCell(0, 0);
    QTest::keyClick(&Table(), Qt::Key_Return);
    EXPECT_EQ(bench->messages.Take(), "Exclamation: 20mV, bipolar, word 13 failed");

    UseBoardWith("board-gone=200000");
    results = folder.Path("gone");
    Open();
    EXPECT_EQ(ClickOn("StartButton"), "Exclamation: The board does not answer any more");
    ExpectState("9 registers not restored");
    UseBoardWith("rdy-stuck-low");
    results = folder.Path("stuck");
    Open();
    EXPECT_EQ(ClickOn("StartButton"), "Exclamation: The data-ready line is stuck low");
    EXPECT_FALSE(Exists("stuck"));
    UseBoardWith("board-gone=0");
    results = folder.Path("none");
    Open();
    EXPECT_EQ(ClickOn("StartButton"), "Exclamation: Simulated board does not answer");
    EXPECT_FALSE(Exists("none"));
}

TEST_F(CharacteriseFormTest, OpensACellInTheNoiseForm) {
    Open();
    ClickOn("StartButton");
    bench->Fill(Converter::Main, std::vector<double>(10, 8388608));
    Open();  // shows the folder's table again, without the board
    emit Box("FolderText").editingFinished();
    ASSERT_NE(Table().item(0, 1), nullptr);
    const std::string table =
        RmsTable(LoadResults(results), Polarity::Bipolar).lines[0].cells[1].text;
    const auto open = [this] { emit Table().cellDoubleClicked(0, 1); };
    bench->messages.answers = {MessageAnswer::No};
    EXPECT_FALSE(WhileModal(open, [](QDialog&) {}));
    EXPECT_EQ(bench->state.MainCodeCount, 10);
    bench->messages.answers = {MessageAnswer::Yes};
    EXPECT_TRUE(WhileModal(open, [&](QDialog& noise) {
        EXPECT_EQ(noise.objectName(), QStringLiteral("MainNoiseForm"));
        // "4.11 (27.1)" in the table, "... uV" in the form.
        const auto microvolts = QString::fromStdString(table).section(QLatin1Char(' '), 0, 0);
        EXPECT_TRUE(QString::fromStdString(TextOf(noise, "ExactRMSLabel")).contains(microvolts))
            << TextOf(noise, "ExactRMSLabel") << " beside " << table;
    }));
    EXPECT_EQ(bench->state.MainCodeCount, 50);
    bench->messages.shown.clear();
    EXPECT_TRUE(WhileModal(open, [](QDialog&) {}));  // nothing is lost
    EXPECT_EQ(bench->messages.Take(), "");
}

TEST_F(CharacteriseFormTest, MeasuresTheAuxAdcInBothPolarities) {
    Open();
    Click(*form, "OptAux");
    Find<QComboBox>(*form, "PolarityBox").setCurrentIndex(2);
    EXPECT_EQ(ClickOn("StartButton"), "");
    EXPECT_EQ(LoadResults(results).rows.size(), 8U);
    EXPECT_TRUE(WhileModal(
        [this] { emit Find<QTableWidget>(*form, "UnipolarTable").cellDoubleClicked(1, 1); },
        [](QDialog& noise) { EXPECT_EQ(noise.objectName(), QStringLiteral("AuxNoiseForm")); }));
    EXPECT_EQ(bench->state.AuxConditions->Control().value() & 0x08, 0x08);  // unipolar
    EXPECT_EQ(bench->state.AuxCodeCount, 50);
}

TEST_F(CharacteriseFormTest, SavesReports) {
    Open();
    EXPECT_FALSE(Find(*form, "ReportButton").isEnabled());
    ClickOn("StartButton");
    SaveReportAs("mine", 1);
    const std::string pdf = folder.Bytes("mine.pdf");
    EXPECT_TRUE(pdf.starts_with("%PDF"));
    const auto pages = [](const std::string& bytes) {
        return QString::fromLatin1(bytes).count(QStringLiteral("/Type /Page\n"));
    };
    EXPECT_GT(pages(pdf), 1);
    SaveReportAs("mine.html", 0);
    EXPECT_EQ(folder.Bytes("mine.html"), folder.Bytes("results/report.html"));
}

TEST_F(CharacteriseFormTest, ShadesAreReadableInLightAndDark) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    for (const QColor base : {Qt::white, Qt::black}) {
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        for (const double place : {0.0, 0.5, 1.0}) {
            const CellColours colours = ColoursOf(place, palette);
            const double one = luminance(colours.background);
            const double other = luminance(colours.text);
            EXPECT_GE((std::max(one, other) + 0.05) / (std::min(one, other) + 0.05), 4.5) << place;
        }
    }
}

}  // namespace
}  // namespace vx3260::test
