// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "link/Converter.h"

namespace vx3260 {

/// The name of a converter in the command line and in results: "main" or "aux".
std::string CommandLineName(Converter converter);

}  // namespace vx3260
