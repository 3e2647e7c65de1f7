// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDevice>
#include <string>
#include <string_view>

namespace vx3260 {

/// Throws FileAccessError: "cannot WHAT NAME: REASON".
[[noreturn]] void ThrowCannot(std::string_view what, std::string_view name,
                              const std::string& reason);

/// The same with the reason why the last operation on the file failed.
[[noreturn]] void ThrowCannot(std::string_view what, std::string_view name,
                              const QFileDevice& file);

}  // namespace vx3260
