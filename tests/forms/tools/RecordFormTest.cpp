// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/RecordForm.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QListWidget>
#include <QOperatingSystemVersion>
#include <QTimer>

#include "support/Folder.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

class RecordFormTest : public FormTest {
  protected:
    void Open() {
        FormTest::Open<RecordForm>();
        Box("FileText").setText(QString::fromStdString(path));
    }
    void Choose(const char* box, const char* text) {
        auto& list = Find<QComboBox>(*form, box);
        list.setCurrentIndex(list.findText(QString::fromUtf8(text)));
        EXPECT_EQ(list.currentText(), QString::fromUtf8(text));
    }
    void SetNumber(const char* name, double number) {
        Find<QDoubleSpinBox>(*form, name).setValue(number);
    }
    void EndAfter(int count) {
        Choose("EndBox", "After a count");
        SetNumber("EndNumber", count);
    }
    /// The lines of a recording that are no comments, without their times.
    static QStringList Values(const std::string& recording) {
        QStringList values;
        for (const QString& line :
             QString::fromStdString(recording).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            if (!line.startsWith(QLatin1Char('#'))) {
                values.append(line.section(QLatin1Char(','), 2));
            }
        }
        return values;
    }
    /// What a recording of this request has, without the form.
    QStringList Expected(RecordingRequest request) {
        SimulatedBench other;
        request.path = folder.Path("other.csv");
        request.start = RecordingStart::Replace;
        RecordingSession session(*other.services, request);
        session.Begin();
        session.Run({});
        return Values(folder.Bytes("other.csv"));
    }
    bool HasEvent(const std::string& part) {
        return !Find<QListWidget>(*form, "EventsList")
                    .findItems(QString::fromStdString(part), Qt::MatchContains)
                    .isEmpty();
    }
    /// Runs `act` from the event loop once so many lines are shown.
    void AfterLines(int lines, const std::function<void()>& act) {
        auto* const timer = new QTimer(form.get());
        QObject::connect(timer, &QTimer::timeout, form.get(), [this, timer, lines, act] {
            if (Find<QLabel>(*form, "LinesLabel").text().toInt() >= lines) {
                timer->deleteLater();
                act();
            }
        });
        timer->start(0);
    }

    Folder folder;
    std::string path = folder.Path("r.csv");
};

TEST_F(RecordFormTest, RecordsWhatTheEngineDoes) {
    using Converters = std::vector<Converter>;
    const struct {
        const char* converter;
        bool intervals;
        RecordingRequest request;
        const char* shown;
    } cases[] = {
        {"Main ADC", false, {.converters = {Converter::Main}}, "LinesLabel: 50"},
        {"Both ADCs", false, {.converters = {Converter::Main, Converter::Aux}}, "LinesLabel: 100"},
        {"Aux ADC",
         true,
         {.converters = Converters{Converter::Aux}, .every = 0.5},
         "LinesLabel: 6"},
    };
    for (const auto& [converter, intervals, wanted, shown] : cases) {
        Open();
        Choose("ConverterBox", converter);
        Choose("EveryBox", intervals ? "Per interval" : "Each code");
        SetNumber("EveryNumber", 0.5);
        EndAfter(50);
        bench->messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
        ClickOn("StartButton");
        RecordingRequest request = wanted;
        request.count = 50;
        EXPECT_EQ(Values(folder.Bytes("r.csv")), Expected(request)) << converter;
        Expect(std::string("ProgressFrame: Recording complete | ConversionsLabel: 50 | ") + shown);
        EXPECT_TRUE(HasEvent("complete: "));
        UseBoardWith("");
    }
    EXPECT_TRUE(bench->port->writes.empty());
}

TEST_F(RecordFormTest, AppendsReplacesOrLeavesWhatExists) {
    Open();
    EndAfter(3);
    EXPECT_EQ(ClickOn("StartButton"), "");
    const std::string first = folder.Bytes("r.csv");
    const std::string question =
        "Question yes or no: r.csv exists.\r\n\r\nContinue the recording in it ?";
    bench->messages.answers = {MessageAnswer::No, MessageAnswer::No};
    EXPECT_EQ(ClickOn("StartButton"), question + "\nExclamation yes or no: Replace r.csv ?");
    EXPECT_EQ(folder.Bytes("r.csv"), first);
    bench->messages.answers = {MessageAnswer::Yes};
    EXPECT_EQ(ClickOn("StartButton"), question);
    const std::string both = folder.Bytes("r.csv");
    EXPECT_TRUE(both.starts_with(first + "# gap: continued at "));
    EXPECT_EQ(Values(both).size(), 7);
    Choose("EveryBox", "Per interval");
    bench->messages.answers = {MessageAnswer::Yes};
    EXPECT_TRUE(ClickOn("StartButton")
                    .starts_with(question + "\nExclamation: Cannot append to " + path +
                                 ": it has the columns utc,"));
    EXPECT_EQ(folder.Bytes("r.csv"), both);
    Choose("EveryBox", "Each code");
    folder.Make("r.csv", first.substr(0, first.size() - 5));
    bench->messages.answers = {MessageAnswer::Yes};
    ClickOn("StartButton");
    EXPECT_TRUE(HasEvent("cut off a torn last line of "));
}

TEST_F(RecordFormTest, RotatesAndEndsByTheBoardsClock) {
    Open();
    Choose("EndBox", "After a time");
    Choose("EndUnit", "min");
    SetNumber("EndNumber", 0.5);
    Choose("RotateBox", "After a time");
    Choose("RotateUnit", "s");
    SetNumber("RotateNumber", 12);
    ClickOn("StartButton");
    for (const char* name : {"r-001.csv", "r-002.csv", "r-003.csv"}) {
        EXPECT_GT(Values(folder.Bytes(name)).size(), 100) << name;
        EXPECT_TRUE(HasEvent(std::string("recording into ") + folder.Path(name)));
    }
    EXPECT_EQ(folder.Bytes("r-004.csv"), "");
    Expect("ElapsedLabel: 0:30");
    Choose("RotateBox", "At a size");
    Choose("RotateUnit", "kB");
    SetNumber("RotateNumber", 5);
    path = folder.Path("s.csv");
    Box("FileText").setText(QString::fromStdString(path));
    ClickOn("StartButton");
    EXPECT_NEAR(static_cast<double>(folder.Bytes("s-002.csv").size()), 5000, 100);
}

TEST_F(RecordFormTest, StopAndCloseLeaveACompleteFile) {
    for (const bool closes : {false, true}) {
        Open();
        bench->messages.answers = {MessageAnswer::Yes};
        AfterLines(closes ? 1 : 100, [&] {
            EXPECT_FALSE(Find(*form, "StartButton").isEnabled());
            EXPECT_FALSE(Find(*form, "SettingsFrame").isEnabled());
            if (closes) {
                form->close();
            } else {
                Click(*form, "StopButton");
            }
            EXPECT_TRUE(form->isVisible());
        });
        ClickOn("StartButton");
        EXPECT_EQ(form->isVisible(), !closes);
        Expect("ProgressFrame: Recording stopped");
        const std::string recording = folder.Bytes("r.csv");
        EXPECT_TRUE(recording.ends_with("\n"));
        const int lines = Find<QLabel>(*form, "LinesLabel").text().toInt();
        EXPECT_GE(Values(recording).size(), lines + 1);
        EXPECT_TRUE(Find(*form, "StartButton").isEnabled());
    }
}

TEST_F(RecordFormTest, ListsTimeOutsAndGoesOn) {
    UseBoardWith("board-gone=60000");
    Open();
    Choose("EndBox", "After a time");
    SetNumber("EndNumber", 1);
    QString duringOutage;
    const auto stateShown = QObject::connect(
        Find<QListWidget>(*form, "EventsList").model(), &QAbstractItemModel::rowsInserted, [&] {
            QTimer::singleShot(0, form.get(), [&] {
                duringOutage = Find<QGroupBox>(*form, "ProgressFrame").title() + u'|' +
                               Find<QLabel>(*form, "BoardLabel").text();
            });
        });
    EXPECT_EQ(ClickOn("StartButton"), "");
    QObject::disconnect(stateShown);
    EXPECT_EQ(duringOutage,
              QStringLiteral("Recording, readings fail|Simulated board does not answer"));
    EXPECT_GT(Find<QLabel>(*form, "MissedLabel").text().toInt(), 3600);
    Expect("ProgressFrame: Recording complete, readings fail");
    EXPECT_TRUE(HasEvent("time-out: no data-ready; the board does not answer"));
    EXPECT_GT(Find<QLabel>(*form, "TimeOutsLabel").text().toInt(), 55);  // a minute apart
    Expect("ElapsedLabel: 1:00:00 | BoardLabel: Simulated board does not answer");
    EXPECT_TRUE(QString::fromStdString(folder.Bytes("r.csv"))
                    .contains(QStringLiteral("Z time-out: no data-ready")));
}

TEST_F(RecordFormTest, StopsWhereItsFolderDisappears) {
    if (QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows) {
        GTEST_SKIP() << "the folder of an open file cannot be removed here";
    }
    Open();
    Choose("RotateBox", "At a size");
    Choose("RotateUnit", "kB");
    SetNumber("RotateNumber", 1);
    QDir(QString::fromStdString(folder.Path(""))).mkdir(QStringLiteral("gone"));
    Box("FileText").setText(QString::fromStdString(folder.Path("gone/r.csv")));
    AfterLines(1, [&] { QDir(QString::fromStdString(folder.Path("gone"))).removeRecursively(); });
    const std::string boxes = ClickOn("StartButton");
    EXPECT_TRUE(boxes.starts_with("Exclamation: Cannot write " + folder.Path("gone/r-"))) << boxes;
    EXPECT_TRUE(HasEvent("cannot write "));
    Expect("ProgressFrame: Not recording");
    EXPECT_TRUE(Find(*form, "StartButton").isEnabled());
}

TEST_F(RecordFormTest, RefusesABoardThatCannotBeRecorded) {
    const struct {
        const char* fault;
        unsigned address;
        std::uint32_t value;
        const char* message;
    } cases[] = {
        {"", mainControlAt, 0x07, "Exclamation: Enable Main ADC before reading Data"},
        {"", modeAt, 0x00, "Exclamation: The VX3260 is not in Continuous Conversion Mode"},
        {"rdy-stuck-low", ioControlAt, 0, "Exclamation: The data-ready line is stuck low"},
        {"board-gone=0", ioControlAt, 0, "Exclamation: Simulated board does not answer"},
    };
    for (const auto& [fault, address, value, message] : cases) {
        UseBoardWith(fault);
        Preset(address, value);
        Open();
        EXPECT_EQ(ClickOn("StartButton"), message);
    }
    EXPECT_EQ(folder.Bytes("r.csv"), "");
}

TEST_F(RecordFormTest, BrowseAcceptsAFileThatExists) {
    folder.Make("there.csv", "");
    Open();
    EXPECT_TRUE(WhileModal([this] { Click(*form, "BrowseButton"); },
                           [&](QDialog& asked) {
                               dynamic_cast<QFileDialog&>(asked).selectFile(
                                   QString::fromStdString(folder.Path("there.csv")));
                               asked.accept();
                           }));
    EXPECT_EQ(TextOf(*form, "FileText"), folder.Path("there.csv"));
}

}  // namespace
}  // namespace vx3260::test
