// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "acquisition/Characterisation.h"

namespace vx3260 {

/// A resolution in bits; only a lower bound where the noise is too small to be measured.
struct RowBits {
    double bits;
    bool isLowerBound;
};

/// By which resolutions are compared: bits, or infinity where the noise is too small to be
/// measured.
double RankOf(const RowBits& bits);

/// What is said of such a cell.
inline constexpr const char* LowerBoundRemark =
    "the noise is too small to be measured: at least (≥) this resolution";

/// The figures of one setting. Those that are not defined are missing, all where it failed.
struct CharacterisationRow {
    CharacterisedSetting setting{};
    std::string failure{};
    std::size_t count = 0;  ///< codes
    double rateHertz = 0;   ///< nominal
    std::optional<double> rmsVolts{};
    std::optional<double> rmsLowVolts{};  ///< 95 % confidence interval
    std::optional<double> rmsHighVolts{};
    std::optional<double> peakToPeakVolts{};  ///< 6.6 sigma
    std::optional<RowBits> effective{};
    std::optional<RowBits> noiseFree{};       ///< from 6.6 sigma
    std::vector<std::string> warningKinds{};  ///< as JSON has them
    std::vector<std::string> warningTexts{};  ///< one for each kind
};

/// The figures of a measured block.
CharacterisationRow RowOf(const CharacterisedBlock& block);

/// A characterisation, complete or not.
struct CharacterisationResults {
    CharacterisationPlan plan{};
    std::string program{};  ///< name and version
    BoardName board{};
    UtcTime start{};
    RegisterSnapshot registers{};  ///< before the first setting
    std::vector<CharacterisationRow> rows{};

    const CharacterisationRow* RowAt(const CharacterisedSetting& setting) const;
};

/// The range as the command line names it: "20mV"; of the aux ADC "half" or "full".
std::string RangeName(Converter converter, std::int32_t range);
std::string PolarityName(Polarity polarity);

/// The name of the data file of a setting: "bipolar-20mV-13.dat".
std::string DataFileName(Converter converter, const CharacterisedSetting& setting);

QJsonObject PlanObject(const CharacterisationPlan& plan);
QJsonObject ResultsObject(const CharacterisationResults& results);

/// The results in a text of ResultsObject. Throws BadDataError, whose message follows the name of
/// the file, for any other.
CharacterisationResults ParseResults(const std::string& text);

}  // namespace vx3260
