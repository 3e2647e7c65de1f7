// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "app/Services.h"
#include "configuration/ConfigurationTexts.h"
#include "link/Configuration.h"

namespace vx3260 {

/// All registers of the board that can be written. Throws CommandError where no board answers, also
/// where it has gone meanwhile; `consequence` is the sentence of its message that states what this
/// means for the command.
Configuration ReadAnsweredConfiguration(Services& services, std::string_view consequence);

/// Where a configuration that is read now is from.
ConfigurationHead HeadNow(const Services& services);

}  // namespace vx3260
