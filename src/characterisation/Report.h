// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "characterisation/Chart.h"
#include "characterisation/Results.h"

namespace vx3260 {

/// The name of the report in the folder of a characterisation.
inline constexpr const char* ReportName = "report.html";

/// What stands for a chart in the page.
using ChartHtml = std::function<std::string(const Chart&)>;

std::string ReportTitle(const CharacterisationResults& results);

/// The report of a characterisation as one HTML file that needs nothing else: plan, board and
/// registers, the tables, noise over update rate, histograms of the settings with the best and the
/// worst resolution, and the warnings. Reads these two blocks from `folder`; a block that is
/// missing there is left out.
std::string ReportHtml(const CharacterisationResults& results, const std::string& folder);

/// The same with another style sheet and other charts.
std::string ReportHtml(const CharacterisationResults& results, const std::string& folder,
                       const std::string& style, const ChartHtml& chartHtml);

/// Writes the report into the folder. Throws FileAccessError.
void WriteReport(const CharacterisationResults& results, const std::string& folder);

}  // namespace vx3260
