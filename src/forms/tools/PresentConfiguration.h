// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "app/Services.h"
#include "configuration/ConfigurationTexts.h"
#include "link/Configuration.h"

namespace vx3260 {

/// What the chip's registers hold. Where no board answers, a message box says so, with
/// `consequence` as a sentence, and the result is empty.
std::optional<Configuration> ReadPresentConfiguration(Services& services,
                                                      const std::string& consequence);

/// The configuration in a file that the user chose. Throws as LoadConfiguration, and
/// FileAccessError for a pipe or a device.
Configuration LoadChosenConfiguration(const std::string& path);

/// Where a configuration that is read now is from.
ConfigurationHead PresentHead(const Services& services);

}  // namespace vx3260
