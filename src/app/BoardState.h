// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "app/Services.h"
#include "link/BlockConditions.h"

namespace vx3260 {

/// What the readings come from, as far as the program's own accesses have met it.
struct BoardState {
    std::string text;     ///< "Simulated board", "Board on parport0", "Board does not answer" ...
    std::string meaning;  ///< a sentence, with the remedy where there is one
    bool good;            ///< false where what is read does not come from a board
};

BoardState BoardStateOf(const Services& services);

/// Which board that is.
BoardName BoardNameOf(const Services& services);

}  // namespace vx3260
