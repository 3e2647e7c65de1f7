// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>

#include "analysis/CodeScale.h"
#include "analysis/Histogram.h"
#include "analysis/NoiseAnalysis.h"
#include "analysis/Spectrum.h"
#include "analysis/Stability.h"

namespace vx3260 {

/// What the plots draw, as comma-separated values: a line of column names, then one line a bin or
/// a reading, each ended by LF. Numbers that are not whole are the shortest texts that read back as
/// the same double-precision numbers, with a point in every locale.

/// first_code, last_code, count and expected_count: NormalCount in the middle of the bin. It is
/// left empty where sigma is 0 and nothing is expected.
std::string HistogramCsv(const Histogram& histogram, const NormalFit& fit, std::size_t readings);

/// reading, from 1 on, code and volts.
std::string CodesCsv(const AnalysedBlock& block);

/// Whether frequencies are in hertz and times in seconds, or in cycles per reading and in readings:
/// a rate of 1.
enum class TimeUnit { Second, Reading };

/// frequency_hz, density_v_per_rthz and density_lsb_per_rthz; other names per reading.
std::string SpectrumCsv(const Spectrum& spectrum, const CodeScale& scale, TimeUnit unit);

/// tau_s, deviation_v, low_v, high_v and deviation_lsb; another name of the first in readings.
std::string StabilityCsv(std::span<const AllanPoint> points, double rate, const CodeScale& scale,
                         TimeUnit unit);

}  // namespace vx3260
