// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "characterisation/Results.h"

/// The tables of a data sheet: ranges across, update rates down.
namespace vx3260 {

/// What stands in a cell.
struct TableCell {
    std::string text{};            ///< "1.50 (9.90)"; "failed", or empty where it was not measured
    std::string remarks{};         ///< what is to be said of it: a failure, warnings; a line each
    std::optional<double> rank{};  ///< RankOf its effective resolution
};

struct TableLine {
    std::string word;
    std::string rate;  ///< hertz
    std::vector<TableCell> cells{};
};

/// One table, for one polarity.
struct NoiseTable {
    std::string title;                  ///< with the unit
    std::vector<std::string> ranges{};  ///< headings of the cells
    std::vector<TableLine> lines{};
};

/// RMS noise and, in brackets, 6.6 sigma; effective and, in brackets, noise-free resolution.
NoiseTable RmsTable(const CharacterisationResults& results, Polarity polarity);
NoiseTable ResolutionTable(const CharacterisationResults& results, Polarity polarity);

/// The effective resolutions of all settings, from the worst to the best.
struct BitsRange {
    double worst = 0;
    double best = 0;

    /// Of a rank: 0 at the worst, 1 at the best and for infinity; 1 where all are equal.
    double PlaceOf(double rank) const {
        return best > worst ? std::min(1.0, (rank - worst) / (best - worst)) : 1;
    }
};

/// Of the resolutions that were measured; both are 0 where there is none.
BitsRange BitsRangeOf(const CharacterisationResults& results);

/// All tables, with columns of spaces, and the remarks as notes below.
std::string TablesText(const CharacterisationResults& results);

/// One line a setting: range, word, rate_hz, polarity, count, rms_v, rms_low_v, rms_high_v, pkpk_v,
/// effective_bits, noise_free_bits and warnings, the kinds of which are separated by semicolons;
/// "failed" and "lower-bound" are among them. Figures that are not defined are left empty.
std::string TableCsv(const CharacterisationResults& results);

/// A setting in words: "2.56V, bipolar, word 69".
std::string SettingText(Converter converter, const CharacterisedSetting& setting);

/// The row's figures in one line: "RMS 4.11 uV (27.1 uV), 20.2 bits (17.5)".
std::string RowText(const CharacterisationRow& row);

}  // namespace vx3260
