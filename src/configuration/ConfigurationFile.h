// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "configuration/ConfigurationTexts.h"
#include "link/Configuration.h"

namespace vx3260 {

/// Whether a saved configuration has the calibration coefficients too.
enum class Coefficients { LeaveOut, Include };

/// A configuration as a script of the command line: power-down first, the operating mode last, one
/// field a line, comments at the beginning. The level of an input pin is left out; a mode that the
/// chip leaves by itself becomes idle. Throws BadDataError for contents that cannot be set again,
/// such as a filter word below the smallest one.
std::string ConfigurationText(const Configuration& configuration, const ConfigurationHead& head,
                              Coefficients coefficients);

/// What such a text sets. Each register and each of its fields must be there; only coefficients and
/// the levels of input pins can be left out. The last value of a field counts. Throws BadDataError
/// with `source`, the line and the reason.
Configuration ParseConfiguration(std::string_view text, std::string_view source);

/// The configuration in a file. Throws FileAccessError, or BadDataError as ParseConfiguration does
/// and for a file beyond one megabyte.
Configuration LoadConfiguration(const std::string& path);

/// The same for standard input, up to its end.
Configuration LoadConfigurationOfStandardInput();

}  // namespace vx3260
