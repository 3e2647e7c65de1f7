// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

namespace vx3260::test {

/// The message of the error of this kind that an action ends with.
template <typename Error>
std::string ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "no such error";
}

}  // namespace vx3260::test
