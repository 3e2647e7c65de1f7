// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/CountRefusal.h"

#include "analysis/NoiseTexts.h"
#include "app/MessageTexts.h"

namespace vx3260 {

bool RefusedByCount(MessageBoxes& messages, std::int32_t count) {
    if (CountFitsAnalysis(count)) {
        return false;
    }
    messages.Show({.text = std::string(MessageTexts::CountRefusal)});
    return true;
}

}  // namespace vx3260
