// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <string>

#include "characterisation/Results.h"

namespace vx3260 {

/// The report of a characterisation, ReportHtml, as a PDF on A4 with page numbers; charts are
/// vector graphics. A table or chart that fits a page is not split; rows are not in any case.
QByteArray ReportPdf(const CharacterisationResults& results, const std::string& folder);

}  // namespace vx3260
