// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "configuration/ConfigurationFile.h"

/// A configuration as writes to the chip, for firmware. The first write puts the chip into
/// power-down, the last sets the operating mode; a mode that the chip leaves by itself becomes
/// idle. Bits that the configuration does not set, and levels of input pins, are 0.
namespace vx3260 {

enum class ExportFormat { C, Json, Csv };

/// The writes in their order, each with address, width in bits, value and, as a comment or columns
/// of their own, the register and its fields. The C header has one static const table; it is C99
/// and C++. All formats end with a line break. Throws
/// BadDataError where coefficients are wanted and the configuration has none.
std::string ExportText(const Configuration& configuration, const ConfigurationHead& head,
                       Coefficients coefficients, ExportFormat format);

}  // namespace vx3260
