// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "link/ParallelPort.h"

namespace vx3260 {

/// The wires for a person: "SCLK on GPIO24, DIN on GPIO23, ..."; empty for a printer port.
std::string WiringText(const ParallelPort& port);

/// A message in which words in braces name the port or its lines, such as "{the port}" and
/// "{DOUT}": the bits of a printer port, or the wires where single lines carry the board. The words
/// are listed in the source.
std::string InPortWords(std::string_view message, const ParallelPort& port);

}  // namespace vx3260
