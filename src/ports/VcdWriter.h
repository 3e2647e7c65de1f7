// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vx3260 {

/// The type of a variable of a trace.
enum class VcdType {
    Wire,  ///< one bit: "0", "1", or "x" while it is not known
    Text,  ///< any printable characters but a backslash
};

struct VcdVariable {
    std::string_view name;  ///< without spaces
    VcdType type;
    std::string start;  ///< its value at time 0
};

/// A Value Change Dump, IEEE 1364, of one scope. The unit of time is the microsecond, about the
/// duration of one port access; some viewers store a sample for every unit. The file is complete
/// after every call: everything has been passed to the operating system, and it ends with a time
/// later than the last change, without which viewers do not show that change.
class VcdWriter {
  public:
    /// Writes the header and the values at time 0. Replaces an existing dump. Throws
    /// FileAccessError, also for an existing file that is not a dump, which is left unchanged.
    VcdWriter(const std::string& path, std::string_view scope,
              std::span<const VcdVariable> variables);

    /// Records `values`, one for each variable, from `time` on; unchanged ones take no space. A
    /// time less than a microsecond after the previous one becomes the microsecond after that.
    /// Throws FileAccessError; the file then ends with the previous step, and the writer must not
    /// be used any more.
    void Write(std::chrono::nanoseconds time, std::span<const std::string> values);

    /// Extends the last values to `time` at least. Throws as Write does.
    void ExtendTo(std::chrono::nanoseconds time);

  private:
    void Append(const std::string& text);

    std::string path_;
    std::ofstream file_;
    std::uintmax_t size_ = 0;  ///< bytes of the file, all of them whole steps
    std::vector<VcdType> types_;
    std::vector<std::string> values_;
    std::int64_t end_ = 1;  ///< the time that the file ends with, in microseconds
};

}  // namespace vx3260
