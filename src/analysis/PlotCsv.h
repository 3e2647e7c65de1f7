// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "analysis/Histogram.h"
#include "analysis/NoiseAnalysis.h"

namespace vx3260 {

/// What the plots draw, as comma-separated values: a line of column names, then one line a bin or
/// a reading, each ended by LF. Numbers that are not whole are the shortest texts that read back as
/// the same double-precision numbers, with a point in every locale.

/// first_code, last_code, count and expected_count: NormalCount in the middle of the bin. It is
/// left empty where sigma is 0 and nothing is expected.
std::string HistogramCsv(const Histogram& histogram, const NormalFit& fit, std::size_t readings);

/// reading, from 1 on, code and volts.
std::string CodesCsv(const AnalysedBlock& block);

}  // namespace vx3260
