// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "acquisition/Recording.h"
#include "acquisition/RecordingIntervals.h"
#include "acquisition/RecordingLines.h"
#include "files/RecordingFile.h"

namespace vx3260 {

/// Where a recording goes on in a new file. Both empty: nowhere.
struct RotationRule {
    std::optional<double> seconds{};  ///< of the recording's time: at the multiples of it
    std::optional<std::int64_t> bytes{};
};

/// Turns conversions into the lines of a recording's files, one for each code or for each interval,
/// and begins new files. The lines of one moment stay in one file.
class RecordingWriter {
  public:
    /// `every` is the length of an interval in seconds, empty for each code; `plan` that of the
    /// recording. `file` outlives the writer.
    RecordingWriter(RecordingFile& file, RecordingLines lines, std::optional<double> every,
                    const RotationRule& rotation, const RecordingPlan& plan);
    RecordingWriter(const RecordingWriter&) = delete;
    RecordingWriter(RecordingWriter&&) = delete;
    RecordingWriter& operator=(const RecordingWriter&) = delete;
    RecordingWriter& operator=(RecordingWriter&&) = delete;
    ~RecordingWriter() = default;

    std::string Columns() const;

    /// Throws FileAccessError when the disk fails.
    void Add(const RecordingMoment& moment, std::span<const RecordedCode> codes);

    /// Writes the interval that has ended by these elapsed seconds: no earlier conversion follows.
    void Advance(double elapsed);

    /// Writes what there is of the present interval, and closes the file.
    void Finish();

  private:
    double PeriodOf(double elapsed) const;
    bool IsFull(double elapsed) const;
    void Write(const RecordingMoment& moment, Converter converter, const std::string& line);

    RecordingFile& file_;
    RecordingLines lines_;
    RotationRule rotation_;
    Converter first_;
    std::optional<RecordingIntervals> intervals_;
    std::optional<double> period_;  ///< of the last line
};

}  // namespace vx3260
