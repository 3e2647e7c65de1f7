// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/RecordingFile.h"

#include <gtest/gtest.h>

#include <QFile>

#include "numbers/FileErrors.h"
#include "support/Errors.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

const std::string columns = "utc,elapsed_s,converter,code,volts";
const std::string head = columns + "\n# VX\n";
const std::string line = "2026-11-22T08:00:00.250Z,1.5,main,8388608,0";

struct RecordingFileTest : testing::Test {
    RecordingPlace At(const std::string& name, RecordingStart start = RecordingStart::New,
                      bool numbered = false) const {
        return {folder.Path(name), numbered, start};
    }
    Folder folder;
    std::chrono::steady_clock::time_point now;
    RecordingFile::Clock clock = [this] { return now; };
};

TEST_F(RecordingFileTest, LinesAreWrittenWholeAndInTime) {
    RecordingFile file(At("a.csv"), clock);
    file.Begin({"VX"}, columns, "");
    EXPECT_EQ(folder.Bytes("a.csv"), head);
    file.Line(line);
    file.Tick();
    EXPECT_EQ(folder.Bytes("a.csv"), head) << "just written";
    now += std::chrono::milliseconds(5);
    file.Tick();
    EXPECT_EQ(folder.Bytes("a.csv"), head + line + "\n");
    file.Line(line);
    file.Comment("time-out");
    EXPECT_EQ(folder.Bytes("a.csv"), head + line + "\n" + line + "\n# time-out\n");
    for (int i = 0; i < 2000; ++i) {
        file.Line(line);
    }
    EXPECT_EQ(folder.Bytes("a.csv").back(), '\n');
    EXPECT_GT(folder.Bytes("a.csv").size(), 65536U);
    EXPECT_EQ(file.Lines(), 2002);
}

TEST_F(RecordingFileTest, AppendCutsATornLineAndRefusesOtherColumns) {
    const std::string comments(100000, '#');
    struct Case {
        std::string before;
        std::string after;
        std::int64_t cut;
        bool moment;
    };
    const Case cases[] = {
        {head + line + "\n", head + line + "\n# gap: g\n# VX\n", 0, true},
        {head + line + "\n2026-11",
         head + line + "\n# gap: g; 7 bytes of a torn line were cut off\n# VX\n", 7, true},
        {head + line + "\n" + comments + "\n", head + line + "\n" + comments + "\n# gap: g\n# VX\n",
         0, true},
        {"utc,el", columns + "\n# gap: g; 6 bytes of a torn line were cut off\n# VX\n", 6, false},
        {"", columns + "\n# gap: g\n# VX\n", 0, false},
        {head, head + "# gap: g\n# VX\n", 0, false},
    };
    for (const Case& each : cases) {
        const RecordingPlace place{folder.Make("b.csv", each.before), false,
                                   RecordingStart::Append};
        RecordingFile file(place, clock);
        ASSERT_EQ(file.LastMoment().has_value(), each.moment);
        if (each.moment) {
            EXPECT_EQ(file.LastMoment()->elapsed, 1.5);
            EXPECT_EQ(file.LastMoment()->utc.time_since_epoch().count() % 1000, 250);
        }
        EXPECT_EQ(file.Begin({"VX"}, columns, "g"), each.cut);
        EXPECT_EQ(folder.Bytes("b.csv"), each.after);
    }
    const std::string notARecording = "it is not a recording, which begins with " + columns;
    const std::pair<std::string, std::string> foreign[] = {
        {"utc,elapsed_s,code\n1,2\n3", "it has the columns utc,elapsed_s,code, not " + columns},
        {"index,code\n1,2\n3", notARecording},
        {"precious data without newline", notARecording},
        {"# a comment\n# torn", notARecording},
        {columns + ",more", "it has the columns " + columns + ",more, not " + columns},
        {"\n", notARecording},
    };
    for (const auto& [bytes, reason] : foreign) {
        RecordingFile file({folder.Make("c.csv", bytes), false, RecordingStart::Append});
        EXPECT_TRUE(
            ErrorOf<FileAccessError>([&] { file.Begin({}, columns, ""); }).ends_with(reason))
            << bytes;
        EXPECT_EQ(folder.Bytes("c.csv"), bytes);
    }
    EXPECT_TRUE(ErrorOf<FileAccessError>([&] {
                    RecordingFile(At("c.csv"));
                }).ends_with("--append continues it, --force replaces it"));
}

TEST_F(RecordingFileTest, FurtherFilesAreNumbered) {
    folder.Make("d-002.csv", "taken");
    for (const bool numbered : {false, true}) {
        RecordingFile file(At("d.csv", RecordingStart::New, numbered), clock);
        file.Begin({"VX"}, columns, "");
        file.Line(line);
        file.BeginNext();
        EXPECT_EQ(file.Path(), folder.Path(numbered ? "d-004.csv" : "d-003.csv"));
    }
    for (const char* name : {"d.csv", "d-001.csv"}) {
        EXPECT_EQ(folder.Bytes(name), head + line + "\n");
    }
    EXPECT_EQ(folder.Bytes("d-002.csv"), "taken");
    EXPECT_EQ(folder.Bytes("d-004.csv"), head);
    EXPECT_EQ(RecordingFile(At("d.csv", RecordingStart::Append, true)).Path(),
              folder.Path("d-004.csv"));
    for (const char* name : {"d-0x9.csv", "dd-011.csv", "d-012.txt", "d-9.csv"}) {
        folder.Make(name, head);
    }
    folder.Make("d-1002.csv", head);
    QFile::remove(QString::fromStdString(folder.Path("d-001.csv")));
    EXPECT_EQ(RecordingFile(At("d.csv", RecordingStart::Append, true)).Path(),
              folder.Path("d-1002.csv"));
}

}  // namespace
}  // namespace vx3260::test
