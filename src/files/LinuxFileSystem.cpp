// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "files/FileSystem.h"

namespace vx3260 {

std::string SyncToDisk(const QFileDevice& file) {
    constexpr int notSupported[] = {EINVAL, EROFS, ENOSYS, EOPNOTSUPP};
    int result = 0;
    do {
        result = fdatasync(file.handle());
    } while (result != 0 && errno == EINTR);
    const int error = errno;
    const bool failed = result != 0 && std::find(std::begin(notSupported), std::end(notSupported),
                                                 error) == std::end(notSupported);
    return failed ? std::generic_category().message(error) : "";
}

void RefuseToWait(const QFileDevice& file) {
    const int flags = fcntl(file.handle(), F_GETFL);
    fcntl(file.handle(), F_SETFL, flags | O_NONBLOCK);
}

}  // namespace vx3260
