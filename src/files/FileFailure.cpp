// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/FileFailure.h"

#include <cerrno>
#include <system_error>

#include "numbers/FileErrors.h"

namespace vx3260 {
namespace {

/// Qt drops the reason when a file cannot be given its name; errno still holds it.
std::string ReasonOf(const QFileDevice& file) {
    const int error = errno;
    const bool forgotten =
        file.error() == QFileDevice::NoError || file.error() == QFileDevice::UnspecifiedError;
    return forgotten && error != 0 ? std::generic_category().message(error)
                                   : file.errorString().toStdString();
}

}  // namespace

void ThrowCannot(std::string_view what, std::string_view name, const std::string& reason) {
    throw FileAccessError("cannot " + std::string(what) + " " + std::string(name) + ": " + reason);
}

void ThrowCannot(std::string_view what, std::string_view name, const QFileDevice& file) {
    ThrowCannot(what, name, ReasonOf(file));
}

}  // namespace vx3260
