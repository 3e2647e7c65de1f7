// SPDX-License-Identifier: GPL-3.0-or-later
#include "characterisation/Results.h"

#include <QJsonArray>
#include <QString>
#include <algorithm>
#include <limits>

#include "files/JsonFields.h"
#include "link/FilterRate.h"
#include "link/RegisterLookup.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr QLatin1String formatName("vx3260-characterisation");
constexpr int formatVersion = 1;

[[noreturn]] void Refuse(const QString& what) {
    RefuseJson(QStringLiteral("%1 is missing or not what it should be").arg(what));
}

/// The inverse of TextOfCode: some channels of the aux converter have no names.
std::int32_t CodeNamed(const RegisterMap::Field& field, const QJsonValue& name) {
    const std::string text = name.toString().toStdString();
    for (std::int32_t code = 0; code <= field.LargestCode(); ++code) {
        if (RegisterMap::TextOfCode(field, code) == text) {
            return code;
        }
    }
    Refuse(QString::fromUtf8(field.name));
}

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

std::optional<double> NumberIn(const QJsonObject& object, QLatin1String name) {
    const QJsonValue value = object[name];
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

QJsonValue BitsValue(const std::optional<RowBits>& bits) {
    return bits
               ? QJsonValue(QJsonObject{{"bits", bits->bits}, {"isLowerBound", bits->isLowerBound}})
               : QJsonValue();
}

std::optional<RowBits> BitsIn(const QJsonValue& value) {
    if (!value.isObject()) {
        return std::nullopt;
    }
    return RowBits{value["bits"].toDouble(), value["isLowerBound"].toBool()};
}

QJsonArray WarningsArray(const CharacterisationRow& row) {
    QJsonArray warnings;
    for (std::size_t i = 0; i < row.warningKinds.size(); ++i) {
        warnings.append(
            QJsonObject{{"kind", Text(row.warningKinds[i])}, {"text", Text(row.warningTexts[i])}});
    }
    return warnings;
}

QJsonObject RowObject(Converter converter, const CharacterisationRow& row) {
    const CharacterisedSetting& setting = row.setting;
    QJsonObject object{
        {"range", Text(RangeName(converter, setting.range))},
        {"word", setting.filterWord},
        {"polarity", Text(PolarityName(setting.polarity))},
        {"rateHz", row.rateHertz},
        {"count", static_cast<qint64>(row.count)},
        {"rmsVolts", OrNull(row.rmsVolts)},
        {"rmsVoltsLow", OrNull(row.rmsLowVolts)},
        {"rmsVoltsHigh", OrNull(row.rmsHighVolts)},
        {"peakToPeakVolts", OrNull(row.peakToPeakVolts)},
        {"effectiveResolution", BitsValue(row.effective)},
        {"noiseFreeResolution", BitsValue(row.noiseFree)},
        {"warnings", WarningsArray(row)},
        {"failure", row.failure.empty() ? QJsonValue() : QJsonValue(Text(row.failure))},
    };
    if (row.failure.empty()) {
        object["file"] = Text(DataFileName(converter, setting));
    }
    return object;
}

Polarity PolarityNamed(const QJsonValue& name) {
    return CodeNamed(RegisterMap::Polarity, name) == 1 ? Polarity::Unipolar : Polarity::Bipolar;
}

std::int32_t WordIn(const QJsonValue& value) {
    const int word = value.toInt();
    if (word < MinFilterWord || word > MaxFilterWord) {
        Refuse(QStringLiteral("the filter word"));
    }
    return word;
}

CharacterisationRow RowIn(Converter converter, const QJsonObject& object) {
    CharacterisationRow row;
    row.setting = {PolarityNamed(object["polarity"]), WordIn(object["word"]),
                   CodeNamed(ScaleField(converter), object["range"])};
    row.failure = object["failure"].toString().toStdString();
    row.count = static_cast<std::size_t>(std::max(0, object["count"].toInt()));
    row.rateHertz = UpdateRateOf(row.setting.filterWord);
    row.rmsVolts = NumberIn(object, QLatin1String("rmsVolts"));
    row.rmsLowVolts = NumberIn(object, QLatin1String("rmsVoltsLow"));
    row.rmsHighVolts = NumberIn(object, QLatin1String("rmsVoltsHigh"));
    row.peakToPeakVolts = NumberIn(object, QLatin1String("peakToPeakVolts"));
    row.effective = BitsIn(object["effectiveResolution"]);
    row.noiseFree = BitsIn(object["noiseFreeResolution"]);
    for (const auto& entry : object["warnings"].toArray()) {
        const QJsonObject warning = entry.toObject();
        row.warningKinds.push_back(warning["kind"].toString().toStdString());
        row.warningTexts.push_back(warning["text"].toString().toStdString());
    }
    return row;
}

CharacterisationPlan PlanIn(const QJsonObject& object) {
    CharacterisationPlan plan;
    plan.converter = ConverterIn(object, "converter");
    for (const auto& range : object["ranges"].toArray()) {
        plan.ranges.push_back(CodeNamed(ScaleField(plan.converter), range));
    }
    for (const auto& word : object["words"].toArray()) {
        plan.filterWords.push_back(WordIn(word));
    }
    for (const auto& polarity : object["polarities"].toArray()) {
        plan.polarities.push_back(PolarityNamed(polarity));
    }
    plan.channel = CodeNamed(ChannelField(plan.converter), object["channel"]);
    plan.count = static_cast<std::int16_t>(object["count"].toInt());
    plan.settle = object["settle"].toInt();
    plan.calibrate = object["calibrate"].toBool();
    plan.referenceVoltage = static_cast<float>(object["referenceVoltage"].toDouble());
    if (plan.count < 1 || plan.settle < 0 || !(plan.referenceVoltage > 0)) {
        Refuse(QStringLiteral("\"plan\""));
    }
    return plan;
}

std::optional<double> TimesLsb(const std::optional<double>& codes, double lsbVolts) {
    return codes ? std::optional(*codes * lsbVolts) : std::nullopt;
}

std::optional<RowBits> BitsOf(const std::optional<ResolutionBits>& resolution) {
    return resolution ? std::optional(RowBits{resolution->bits, resolution->isLowerBound})
                      : std::nullopt;
}

}  // namespace

double RankOf(const RowBits& bits) {
    return bits.isLowerBound ? std::numeric_limits<double>::infinity() : bits.bits;
}

CharacterisationRow RowOf(const CharacterisedBlock& block) {
    CharacterisationRow row{.setting = block.setting,
                            .failure = block.failure,
                            .count = block.codes.size(),
                            .rateHertz = UpdateRateOf(block.setting.filterWord)};
    if (block.analysis) {
        const Resolution& resolution = block.analysis->resolution;
        const double lsb = block.analysis->own.lsbVolts;
        row.rmsVolts = TimesLsb(resolution.rmsNoise, lsb);
        if (resolution.rmsNoiseLimits) {
            row.rmsLowVolts = resolution.rmsNoiseLimits->low * lsb;
            row.rmsHighVolts = resolution.rmsNoiseLimits->high * lsb;
        }
        row.peakToPeakVolts = TimesLsb(resolution.peakToPeak, lsb);
        row.effective = BitsOf(resolution.effective);
        row.noiseFree = BitsOf(resolution.noiseFreeFromSigma);
    }
    for (const BlockWarning& warning : block.warnings) {
        row.warningKinds.emplace_back(NameOf(warning.kind));
        row.warningTexts.push_back(warning.text);
    }
    return row;
}

const CharacterisationRow* CharacterisationResults::RowAt(
    const CharacterisedSetting& setting) const {
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&setting](const auto& row) { return row.setting == setting; });
    return found == rows.end() ? nullptr : &*found;
}

std::string RangeName(Converter converter, std::int32_t range) {
    return RegisterMap::TextOfCode(ScaleField(converter), range);
}

std::string PolarityName(Polarity polarity) {
    return RegisterMap::TextOfCode(RegisterMap::Polarity, polarity == Polarity::Unipolar ? 1 : 0);
}

std::string DataFileName(Converter converter, const CharacterisedSetting& setting) {
    return PolarityName(setting.polarity) + "-" + RangeName(converter, setting.range) + "-" +
           std::to_string(setting.filterWord) + ".dat";
}

QJsonObject PlanObject(const CharacterisationPlan& plan) {
    QJsonArray ranges;
    for (const std::int32_t range : plan.ranges) {
        ranges.append(Text(RangeName(plan.converter, range)));
    }
    QJsonArray words;
    for (const std::int32_t word : plan.filterWords) {
        words.append(word);
    }
    QJsonArray polarities;
    for (const Polarity polarity : plan.polarities) {
        polarities.append(Text(PolarityName(polarity)));
    }
    return {{"converter", ConverterValue(plan.converter)},
            {"ranges", ranges},
            {"words", words},
            {"polarities", polarities},
            {"channel", Text(RegisterMap::TextOfCode(ChannelField(plan.converter), plan.channel))},
            {"count", plan.count},
            {"settle", plan.settle},
            {"calibrate", plan.calibrate},
            {"referenceVoltage", AsEntered(plan.referenceVoltage)}};
}

QJsonObject ResultsObject(const CharacterisationResults& results) {
    QJsonArray rows;
    for (const CharacterisationRow& row : results.rows) {
        rows.append(RowObject(results.plan.converter, row));
    }
    return {{"format", formatName},
            {"version", formatVersion},
            {"program", Text(results.program)},
            {"board", BoardObject(results.board)},
            {"start", TimeValue(results.start)},
            {"plan", PlanObject(results.plan)},
            {"registers", RegistersObject(results.registers)},
            {"settings", rows}};
}

CharacterisationResults ParseResults(const std::string& text) {
    const QJsonObject object = ParseJsonObject(text);
    CheckFormat(object, formatName, formatVersion, "a characterisation");
    CharacterisationResults results;
    results.program = object["program"].toString().toStdString();
    results.board = BoardIn(object["board"].toObject());
    results.start = TimeIn(object, "start");
    results.plan = PlanIn(object["plan"].toObject());
    results.registers = RegistersIn(object["registers"].toObject());
    for (const auto& row : object["settings"].toArray()) {
        results.rows.push_back(RowIn(results.plan.converter, row.toObject()));
    }
    return results;
}

}  // namespace vx3260
