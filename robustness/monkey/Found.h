// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <cstdlib>
#include <iostream>

namespace vx3260::monkey {

/// Ends the program: a fault of the forms was found.
[[noreturn]] inline void Found(const QString& what) {
    std::cerr << "Found: " << what.toStdString() << std::endl;
    std::_Exit(1);
}

}  // namespace vx3260::monkey
