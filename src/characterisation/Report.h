// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "characterisation/Results.h"

namespace vx3260 {

/// The name of the report in the folder of a characterisation.
inline constexpr const char* ReportName = "report.html";

/// The report of a characterisation as one HTML file that needs nothing else: plan, board and
/// registers, the tables, noise over update rate, histograms of the settings with the best and the
/// worst resolution, and the warnings. Reads these two blocks from `folder`; a block that is
/// missing there is left out.
std::string ReportHtml(const CharacterisationResults& results, const std::string& folder);

}  // namespace vx3260
