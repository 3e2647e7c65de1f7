// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// Figures of spectrum and stability with their units, to four significant digits.
namespace vx3260 {

std::string RoundedText(double value);              ///< "19.79"
std::string HertzText(double hertz);                ///< "19.79 Hz"
std::string SecondsText(double seconds);            ///< "0.05054 s"
std::string LsbText(double lsb);                    ///< "12.00 LSB"
std::string RmsText(double volts);                  ///< "3.662 uV"
std::string VoltsPerRootHertzText(double density);  ///< "1.164 uV/√Hz"

/// For ticks: the number without trailing zeros, "0.5"; in volts with the unit, "500 nV".
std::string TickText(double value);
std::string VoltsTickText(double volts);

}  // namespace vx3260
