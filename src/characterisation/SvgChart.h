// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "characterisation/Chart.h"

namespace vx3260 {

/// The chart as an SVG element, for a page that needs no other file.
std::string SvgOf(const Chart& chart);

/// A text in which HTML has no markup.
std::string Escaped(const std::string& text);

}  // namespace vx3260
