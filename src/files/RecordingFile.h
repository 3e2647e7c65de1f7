// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <chrono>
#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "link/BlockConditions.h"

namespace vx3260 {

/// What becomes of a file that exists.
enum class RecordingStart { New, Replace, Append };

struct RecordingPlace {
    std::string path;  ///< UTF-8
    /// Whether the first file has a number too, "FILE-001.csv"; later ones always have.
    bool numbered = false;
    RecordingStart start = RecordingStart::New;

    /// The file that a new recording begins with.
    std::string FirstPath() const;
};

/// When a line was recorded, as the line says.
struct RecordedMoment {
    UtcTime utc;
    double elapsed;  ///< seconds
};

/// Writes lines into a file as they come, a line of columns and a head of comments first. Every
/// write ends with a whole line; a process that is killed leaves a torn one only where the system
/// ended a write in the middle.
///
/// Further files are numbered: "FILE-002.csv" follows "FILE.csv" and "FILE-001.csv". One that
/// exists is skipped, with RecordingStart::Replace replaced.
class RecordingFile {
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    /// Throws FileAccessError for a file that exists and is neither to be replaced nor to be
    /// appended to, and as CheckIsNotDevice does. Writes nothing yet.
    explicit RecordingFile(RecordingPlace place, Clock clock = std::chrono::steady_clock::now);

    /// Tries to write what is left.
    ~RecordingFile();
    RecordingFile(const RecordingFile&) = delete;
    RecordingFile(RecordingFile&&) = delete;
    RecordingFile& operator=(const RecordingFile&) = delete;
    RecordingFile& operator=(RecordingFile&&) = delete;

    /// The last line of the recording that is appended to; empty where there is none.
    const std::optional<RecordedMoment>& LastMoment() const { return lastMoment_; }

    /// Opens the file and writes the column line and `comments`, a line each. In a
    /// recording that is appended to, a torn last line is cut off, `gap` is a comment in front and
    /// the columns are there. Returns how many bytes were cut. Throws FileAccessError, also for a
    /// file that does not begin with these columns, or a part of them, which stays as it is.
    std::int64_t Begin(std::vector<std::string> comments, std::string columns,
                       const std::string& gap);

    /// Adds a line, which is on its way to the disk after the next Tick or 64 kB. Throws
    /// FileAccessError, here and in the following, when the disk fails; the file then ends with the
    /// last line that it could take.
    void Line(std::string_view line);

    /// Adds a comment and writes at once.
    void Comment(std::string_view text);

    /// To be called often: writes lines, those that come slower than 200 a second each at once,
    /// and lets the disk take them every 10 s, without waiting for it.
    void Tick();

    /// Ends this file, on the disk then, and begins the next one, with the same head.
    void BeginNext();

    /// Ends the file, on the disk then.
    void Close();

    /// The file that is written now.
    const std::string& Path() const { return path_; }
    std::int64_t Bytes() const { return written_ + static_cast<std::int64_t>(buffer_.size()); }
    /// Lines in all files, without comments.
    std::int64_t Lines() const { return lines_; }

  private:
    std::string NumberedPath(int number) const;
    std::string NextPath();
    void FindLastFile();
    void ReadLastMoment();
    void RequireColumns() const;
    void Open(bool append);
    void WriteHead(const std::string& gap);
    void Write();
    void EndTornLine(std::string_view rest);
    void WaitForSync();
    void StartSync();

    RecordingPlace place_;
    Clock clock_;
    std::string path_;
    int number_ = 1;
    bool continues_ = false;       ///< what is in the file is kept
    std::int64_t wholeLines_ = 0;  ///< bytes of them in the file that is continued
    std::string firstLine_;        ///< of that file, with the line end where it has one
    std::optional<RecordedMoment> lastMoment_;
    std::vector<std::string> comments_;
    std::string columns_;
    std::unique_ptr<QFile> file_;
    std::string buffer_;
    std::int64_t written_ = 0;
    std::int64_t lines_ = 0;
    std::chrono::steady_clock::time_point lastWrite_;
    std::chrono::steady_clock::time_point lastSync_;
    bool unsynced_ = false;
    std::future<std::string> sync_;
};

}  // namespace vx3260
