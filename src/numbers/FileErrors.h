// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>

namespace vx3260 {

/// A file that cannot be read or written. The message names the file and the system's reason.
class FileAccessError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A text that is not in the expected format, such as a block of codes. The message names the
/// source, the line and the reason.
class BadDataError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace vx3260
