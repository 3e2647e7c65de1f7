// SPDX-License-Identifier: GPL-3.0-or-later
// Any file, as a recording that is continued: refused and left as it is, or its whole lines stay
// and what was cut off is counted.

#include <QTemporaryDir>
#include <fstream>
#include <iterator>

#include "Fuzzing.h"
#include "files/RecordingFile.h"
#include "numbers/FileErrors.h"

using namespace vx3260;
using fuzzing::Require;

namespace {

constexpr const char* columns = "utc,elapsed_s,code";
constexpr const char* line = "2026-11-22T07:12:31.250Z,0.050,8388608";

void Write(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Returns how many bytes were cut off; -1 where the file was refused.
std::int64_t Continue(const std::string& path) {
    try {
        RecordingFile recording({.path = path, .start = RecordingStart::Append});
        const std::int64_t cut = recording.Begin({"comment"}, columns, "gap");
        recording.Line(line);
        recording.Close();
        return cut;
    } catch (const FileAccessError&) {
        return -1;
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/fuzz-recordings-XXXXXX"));
    const std::string path = folder.filePath(QStringLiteral("r.csv")).toStdString();
    const std::string before(fuzzing::TextOf(data, size));
    Write(path, before);
    const std::int64_t cut = Continue(path);
    const std::string after = BytesOf(path);
    if (cut < 0) {
        Require(after == before, "a file that is refused stays as it is");
        return 0;
    }
    const std::string whole = before.substr(0, before.rfind('\n') + 1);
    Require(cut == static_cast<std::int64_t>(before.size() - whole.size()), "the cut is counted");
    Require(after.starts_with(whole.empty() ? std::string(columns) + "\n" : whole),
            "whole lines stay");
    Require(after.ends_with("# comment\n" + std::string(line) + "\n"), "the lines are added");
    RecordingFile const again({.path = path, .start = RecordingStart::Append});
    Require(again.LastMoment() && again.LastMoment()->elapsed == 0.05, "the last line is found");
    return 0;
}
