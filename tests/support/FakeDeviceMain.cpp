// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace {

/// ctest's exit code for a test that could not be run.
constexpr int skipped = 77;

/// The devices that umockdev makes are pseudo-terminals; without any it would abort.
bool HasPseudoTerminals() {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal == -1) {
        return false;
    }
    close(terminal);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!GTEST_FLAG_GET(list_tests) && !HasPseudoTerminals()) {
        std::fputs("no pseudo-terminals here: is /dev/pts mounted?\n", stderr);
        return skipped;
    }
    return RUN_ALL_TESTS();
}
