// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDevice>
#include <string>

namespace vx3260 {

/// Waits until what was written to an open file is on its disk. Returns the system's reason if the
/// disk failed: an I/O error, no space left, a quota exceeded. Empty on success and on file systems
/// that do not support syncing.
std::string SyncToDisk(const QFileDevice& file);

/// Makes reads of an open file fail instead of waiting for data. For regular files: on Linux a few
/// of those can block, such as /proc/kmsg.
void RefuseToWait(const QFileDevice& file);

}  // namespace vx3260
