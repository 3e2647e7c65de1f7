// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDevice>
#include <string>

namespace vx3260 {

/// Waits until what was written to an open file is on its disk. Returns the system's reason where
/// the disk refused it: an I/O error, no space left, a quota. Empty on success, and where there is
/// nothing to wait for, as on file systems that cannot sync.
std::string SyncToDisk(const QFileDevice& file);

/// Makes reads of an open file fail that would wait for somebody to feed it. For files that the
/// system calls regular: on Linux a few of those wait, such as /proc/kmsg.
void RefuseToWait(const QFileDevice& file);

}  // namespace vx3260
