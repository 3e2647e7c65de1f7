// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// What libFuzzer calls with each input. An exception that leaves it is a finding, too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vx3260::fuzzing {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Ends the process, which libFuzzer reports as a finding, where `holds` is false.
inline void Require(bool holds, const std::string& what) {
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s\n", what.c_str());
        std::abort();
    }
}

}  // namespace vx3260::fuzzing
