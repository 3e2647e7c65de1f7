// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/ConditionsFile.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QString>
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "files/CodeFile.h"
#include "files/CodeText.h"
#include "files/JsonFields.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr QLatin1String formatName("vx3260-conditions");
constexpr int formatVersion = 1;

constexpr SizeLimit sizeLimit{std::size_t{1} << 20U, "that is not a conditions file"};

constexpr std::pair<ReadingEnd, QLatin1String> outcomes[] = {
    {ReadingEnd::Complete, QLatin1String("complete")},
    {ReadingEnd::TimedOut, QLatin1String("timed-out")},
    {ReadingEnd::Stopped, QLatin1String("stopped")},
};

template <typename Value, std::size_t size>
QLatin1String NameIn(const std::pair<Value, QLatin1String> (&names)[size], Value value) {
    return std::find_if(std::begin(names), std::end(names),
                        [value](const auto& entry) { return entry.first == value; })
        ->second;
}

/// Of the block as a decimal data file, whatever the notation of the one it stands beside.
QString ChecksumOf(std::span<const std::int32_t> codes) {
    const std::string text = FormatCodes(codes, Notation::Decimal);
    return QString::fromLatin1(
        QCryptographicHash::hash(QByteArray::fromStdString(text), QCryptographicHash::Sha256)
            .toHex());
}

QJsonObject CodesObject(std::span<const std::int32_t> codes) {
    return {{"count", static_cast<qint64>(codes.size())}, {"sha256", ChecksumOf(codes)}};
}

template <typename Value, std::size_t size>
Value ChoiceIn(const QJsonObject& object, const char* name,
               const std::pair<Value, QLatin1String> (&names)[size]) {
    const QString text = TextIn(object, name);
    const auto* const found =
        std::find_if(std::begin(names), std::end(names),
                     [&text](const auto& entry) { return entry.second == text; });
    if (found == std::end(names)) {
        RefuseJson(QStringLiteral("\"%1\" is not a valid value for \"%2\"").arg(text, name));
    }
    return found->first;
}

}  // namespace

std::string ConditionsPath(const std::string& dataPath) {
    return dataPath + ".json";
}

QLatin1String OutcomeName(ReadingEnd outcome) {
    return NameIn(outcomes, outcome);
}

QJsonObject ConditionsObject(const BlockConditions& conditions) {
    const std::optional<float> reference = conditions.referenceVoltage;
    return {
        {"program", QString::fromStdString(conditions.program)},
        {"board", BoardObject(conditions.board)},
        {"converter", ConverterValue(conditions.converter)},
        {"start", TimeValue(conditions.start)},
        {"end", TimeValue(conditions.end)},
        {"outcome", OutcomeName(conditions.outcome)},
        {"referenceVoltage",
         OrNull(reference ? std::optional(AsEntered(*reference)) : std::nullopt)},
        {"nominalRateHz", OrNull(conditions.NominalRate())},
        {"meanIntervalSeconds", OrNull(conditions.meanInterval)},
        {"missedConversions", OrNull(conditions.missedConversions)},
        {"registers", RegistersObject(conditions.registers)},
    };
}

std::string FormatConditions(const BlockConditions& conditions,
                             std::span<const std::int32_t> codes) {
    QJsonObject object = ConditionsObject(conditions);
    object["format"] = formatName;
    object["version"] = formatVersion;
    object["codes"] = CodesObject(codes);
    return QJsonDocument(object).toJson().toStdString();
}

BlockConditions ParseConditions(const std::string& text, std::span<const std::int32_t> codes) {
    const QJsonObject object = ParseJsonObject(text);
    CheckFormat(object, formatName, formatVersion, "a conditions file");
    if (ObjectIn(object, "codes") != CodesObject(codes)) {
        RefuseJson(QStringLiteral("it belongs to other codes"));
    }
    const std::optional<double> reference = PositiveIn(object, "referenceVoltage");
    BlockConditions conditions;
    conditions.program = TextIn(object, "program").toStdString();
    conditions.board = BoardIn(ObjectIn(object, "board"));
    conditions.converter = ConverterIn(object, "converter");
    conditions.start = TimeIn(object, "start");
    conditions.end = TimeIn(object, "end");
    conditions.outcome = ChoiceIn(object, "outcome", outcomes);
    conditions.meanInterval = PositiveIn(object, "meanIntervalSeconds");
    conditions.missedConversions = CountIn(object, "missedConversions");
    conditions.registers = RegistersIn(ObjectIn(object, "registers"));
    if (reference) {
        conditions.referenceVoltage = static_cast<float>(*reference);
    }
    return conditions;
}

LoadedConditions LoadConditions(const std::string& dataPath, Converter converter,
                                std::span<const std::int32_t> codes) {
    const std::string path = ConditionsPath(dataPath);
    if (!FileExists(path)) {
        return {};
    }
    const auto unknown = [](const std::string& why) {
        return LoadedConditions{std::nullopt, "the conditions of the reading are unknown: " + why};
    };
    std::string text;
    try {
        CheckIsNotDevice(path);
        text = LoadBytes(path, sizeLimit);
    } catch (const std::runtime_error& error) {
        return unknown(error.what());
    }
    try {
        BlockConditions conditions = ParseConditions(text, codes);
        if (conditions.converter != converter) {
            RefuseJson(QStringLiteral("it belongs to a block of the other ADC"));
        }
        return {std::move(conditions), {}};
    } catch (const BadDataError& error) {
        return unknown(path + ": " + error.what());
    }
}

}  // namespace vx3260
