// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/ioctl.h>

#include <cerrno>

namespace vx3260 {

/// An ioctl that a signal interrupted is repeated. Returns -1 with errno on failure.
template <typename... Argument>
int Ioctl(int device, unsigned long request, Argument... argument) {
    int result = 0;
    do {
        result = ioctl(device, request, argument...);
    } while (result == -1 && errno == EINTR);
    return result;
}

}  // namespace vx3260
