// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cerrno>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace vx3260 {

/// A file that cannot be read or written. The message names the file and the system's reason.
class FileAccessError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// For a write to a stream that has just failed: the reason is errno, which was cleared before the
/// write, or EIO where it is still 0.
inline FileAccessError CannotWrite(std::string_view name) {
    const int error = errno != 0 ? errno : EIO;
    return FileAccessError("cannot write " + std::string(name) + ": " +
                           std::generic_category().message(error));
}

/// A text that is not in the expected format, such as a block of codes. The message names the
/// source, the line and the reason.
class BadDataError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace vx3260
