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

/// What a variable of a trace can hold.
enum class VcdType {
    Wire,  ///< one bit: "0", "1", or "x" while it is not known
    Text,  ///< any printable characters but a backslash
};

struct VcdVariable {
    std::string_view name;  ///< no blanks
    VcdType type;
    std::string start;  ///< its value at time 0
};

/// A Value Change Dump, IEEE 1364, of one scope, in microseconds: about what one access of a
/// printer port takes, and some viewers hold a sample for every unit of time. The file is complete
/// after every call: it has been handed to the operating system, and it ends with a time later than
/// the last change, without which viewers do not show that change.
class VcdWriter {
  public:
    /// Writes the header and the values at time 0, over what a file of such a dump held. Throws
    /// FileAccessError, also for a file that holds anything else: it is left as it is.
    VcdWriter(const std::string& path, std::string_view scope,
              std::span<const VcdVariable> variables);

    /// `values`, one of each variable, hold from `time` on; those that are as before cost nothing.
    /// A time that is not later than all before, or less than a microsecond later, is taken as the
    /// microsecond after them.
    /// Throws FileAccessError; the file then ends with the step before, and the writer is of no
    /// further use.
    void Write(std::chrono::nanoseconds time, std::span<const std::string> values);

    /// The values as they are hold until `time` at least. Throws as Write does.
    void ExtendTo(std::chrono::nanoseconds time);

  private:
    void Append(const std::string& text);
    [[noreturn]] void ThrowCannotWrite() const;

    std::string path_;
    std::ofstream file_;
    std::uintmax_t size_ = 0;  ///< bytes of the file, all of them whole steps
    std::vector<VcdType> types_;
    std::vector<std::string> values_;
    std::int64_t end_ = 1;  ///< the time that the file ends with, in microseconds
};

}  // namespace vx3260
