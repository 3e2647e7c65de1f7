// SPDX-License-Identifier: GPL-3.0-or-later
#include <io.h>
#include <windows.h>

#include <QString>
#include <algorithm>
#include <iterator>

#include "files/FileSystem.h"

namespace vx3260 {

namespace {

/// ERROR_DISK_QUOTA_EXCEEDED, which not all compilers' headers have.
constexpr DWORD diskQuotaExceeded = 1295;

constexpr DWORD failures[] = {
    ERROR_CRC,         ERROR_GEN_FAILURE,      ERROR_IO_DEVICE,
    ERROR_WRITE_FAULT, ERROR_NOT_READY,        ERROR_NETNAME_DELETED,
    ERROR_DISK_FULL,   ERROR_HANDLE_DISK_FULL, ERROR_NOT_ENOUGH_QUOTA,
    diskQuotaExceeded,
};

}  // namespace

std::string SyncToDisk(const QFileDevice& file) {
    const bool synced =
        FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()))) != 0;
    const DWORD error = GetLastError();
    const bool failed =
        !synced && std::find(std::begin(failures), std::end(failures), error) != std::end(failures);
    return failed ? qt_error_string(static_cast<int>(error)).toStdString() : "";
}

void RefuseToWait(const QFileDevice& /*file*/) {}

}  // namespace vx3260
