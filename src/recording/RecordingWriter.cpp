// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/RecordingWriter.h"

#include <cmath>
#include <utility>

namespace vx3260 {

RecordingWriter::RecordingWriter(RecordingFile& file, RecordingLines lines,
                                 std::optional<double> every, const RotationRule& rotation,
                                 const RecordingPlan& plan)
    : file_(file), lines_(std::move(lines)), rotation_(rotation), first_(plan.converters.front()) {
    if (every) {
        intervals_.emplace(*every, plan.elapsedBefore,
                           [this](const RecordingMoment& start, Converter converter,
                                  const IntervalFigures& figures) {
                               Write(start, converter, lines_.Line(start, converter, figures));
                           });
    }
}

std::string RecordingWriter::Columns() const {
    return intervals_ ? lines_.IntervalColumns() : lines_.CodeColumns();
}

void RecordingWriter::Add(const RecordingMoment& moment, std::span<const RecordedCode> codes) {
    if (intervals_) {
        intervals_->Add(moment, codes);
        return;
    }
    for (const RecordedCode& code : codes) {
        Write(moment, code.converter, lines_.Line(moment, code));
    }
}

void RecordingWriter::Advance(double elapsed) {
    if (intervals_) {
        intervals_->Advance(elapsed);
    }
}

void RecordingWriter::Finish() {
    if (intervals_) {
        intervals_->Finish();
    }
    file_.Close();
}

double RecordingWriter::PeriodOf(double elapsed) const {
    return std::floor(elapsed / *rotation_.seconds);
}

bool RecordingWriter::IsFull(double elapsed) const {
    return (rotation_.seconds && period_ && PeriodOf(elapsed) != *period_) ||
           (rotation_.bytes && file_.Bytes() >= *rotation_.bytes);
}

void RecordingWriter::Write(const RecordingMoment& moment, Converter converter,
                            const std::string& line) {
    if (converter == first_) {
        if (IsFull(moment.elapsed)) {
            file_.BeginNext();
        }
        if (rotation_.seconds) {
            period_ = PeriodOf(moment.elapsed);
        }
    }
    file_.Line(line);
}

}  // namespace vx3260
