// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/ConditionsFile.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QString>
#include <algorithm>
#include <cmath>
#include <utility>

#include "files/CodeFile.h"
#include "files/CodeText.h"
#include "files/RegisterJson.h"
#include "link/RegisterLookup.h"
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

constexpr std::pair<Converter, QLatin1String> converters[] = {
    {Converter::Main, QLatin1String("main")},
    {Converter::Aux, QLatin1String("aux")},
};

template <typename Value, std::size_t size>
QLatin1String NameIn(const std::pair<Value, QLatin1String> (&names)[size], Value value) {
    return std::find_if(std::begin(names), std::end(names),
                        [value](const auto& entry) { return entry.first == value; })
        ->second;
}

[[noreturn]] void Refuse(const QString& reason) {
    throw BadDataError(reason.toStdString());
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

template <typename Number>
QJsonValue OrNull(const std::optional<Number>& number) {
    return number ? QJsonValue(*number) : QJsonValue();
}

QString TimeText(UtcTime time) {
    return QDateTime::fromMSecsSinceEpoch(time.time_since_epoch().count(), Qt::UTC)
        .toString(Qt::ISODateWithMs);
}

QJsonObject BoardObject(const BoardName& board) {
    QJsonArray faults;
    for (const std::string& fault : board.faults) {
        faults.append(QString::fromStdString(fault));
    }
    return {{"simulated", !board.label.empty()},
            {"port", QString::fromStdString(board.port)},
            {"faults", faults}};
}

/// The status register tells how things stand at a moment, not how the chip is set.
bool IsSetting(const RegisterMap::RegisterDescription& description) {
    return description.access.writeByte != 0;
}

QJsonObject RegistersObject(const RegisterSnapshot& registers) {
    QJsonObject object;
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        if (IsSetting(description)) {
            const std::optional<std::int32_t> value = registers.ValueOf(description.access);
            object[QString::fromUtf8(description.name)] =
                value ? QJsonValue(RegisterObject({description, *value})) : QJsonValue();
        }
    }
    return object;
}

QJsonValue Member(const QJsonObject& object, const char* name, QJsonValue::Type type) {
    const QJsonValue value = object[QLatin1String(name)];
    if (value.type() != type) {
        Refuse(QStringLiteral("\"%1\" is missing or not what it should be").arg(name));
    }
    return value;
}

QString TextIn(const QJsonObject& object, const char* name) {
    return Member(object, name, QJsonValue::String).toString();
}

QJsonObject ObjectIn(const QJsonObject& object, const char* name) {
    return Member(object, name, QJsonValue::Object).toObject();
}

template <typename Value, std::size_t size>
Value ChoiceIn(const QJsonObject& object, const char* name,
               const std::pair<Value, QLatin1String> (&names)[size]) {
    const QString text = TextIn(object, name);
    const auto* const found =
        std::find_if(std::begin(names), std::end(names),
                     [&text](const auto& entry) { return entry.second == text; });
    if (found == std::end(names)) {
        Refuse(QStringLiteral("\"%1\" is not a valid value for \"%2\"").arg(text, name));
    }
    return found->first;
}

/// A number above 0; null or missing is unknown.
std::optional<double> PositiveIn(const QJsonObject& object, const char* name) {
    const QJsonValue value = object[QLatin1String(name)];
    if (value.isNull() || value.isUndefined()) {
        return std::nullopt;
    }
    const double number = value.toDouble();
    if (!(number > 0) || !std::isfinite(static_cast<float>(number))) {
        Refuse(QStringLiteral("\"%1\" is not a number above 0").arg(name));
    }
    return number;
}

UtcTime TimeIn(const QJsonObject& object, const char* name) {
    const QDateTime time = QDateTime::fromString(TextIn(object, name), Qt::ISODateWithMs);
    if (!time.isValid()) {
        Refuse(QStringLiteral("\"%1\" is not a time").arg(name));
    }
    return UtcTime(std::chrono::milliseconds(time.toMSecsSinceEpoch()));
}

RegisterSnapshot RegistersIn(const QJsonObject& object) {
    RegisterSnapshot registers;
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        const QJsonValue held = object[QString::fromUtf8(description.name)];
        if (!IsSetting(description) || held.isNull() || held.isUndefined()) {
            continue;
        }
        const double value = held[QLatin1String("value")].toDouble(-1);
        if (value < 0 || value > std::ldexp(1.0, description.access.wordLength) - 1 ||
            value != std::floor(value)) {
            Refuse(QStringLiteral("the register \"%1\" has no valid value")
                       .arg(QString::fromUtf8(description.name)));
        }
        registers.Set(description.access, static_cast<std::int32_t>(value));
    }
    return registers;
}

BoardName BoardIn(const QJsonObject& object) {
    BoardName board;
    board.label = Member(object, "simulated", QJsonValue::Bool).toBool() ? SimulatedBoardLabel : "";
    board.port = TextIn(object, "port").toStdString();
    for (const QJsonValue& fault : Member(object, "faults", QJsonValue::Array).toArray()) {
        board.faults.push_back(fault.toString().toStdString());
    }
    return board;
}

QJsonObject DocumentIn(const std::string& text) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(text), &error);
    if (error.error != QJsonParseError::NoError) {
        Refuse(QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset));
    }
    return document.object();
}

void CheckVersion(const QJsonObject& object) {
    if (object[QLatin1String("format")].toString() != formatName) {
        Refuse(QStringLiteral("it is not a conditions file"));
    }
    const double version = object[QLatin1String("version")].toDouble();
    if (version > formatVersion) {
        Refuse(QStringLiteral("it is of version %1, newer than this program's %2")
                   .arg(version)
                   .arg(formatVersion));
    }
    if (version != formatVersion) {
        Refuse(QStringLiteral("it has no valid version"));
    }
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
        {"converter", NameIn(converters, conditions.converter)},
        {"start", TimeText(conditions.start)},
        {"end", TimeText(conditions.end)},
        {"outcome", OutcomeName(conditions.outcome)},
        {"referenceVoltage",
         OrNull(reference ? std::optional(AsEntered(*reference)) : std::nullopt)},
        {"nominalRateHz", OrNull(conditions.NominalRate())},
        {"meanIntervalSeconds", OrNull(conditions.meanInterval)},
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
    const QJsonObject object = DocumentIn(text);
    CheckVersion(object);
    if (ObjectIn(object, "codes") != CodesObject(codes)) {
        Refuse(QStringLiteral("it belongs to other codes"));
    }
    const std::optional<double> reference = PositiveIn(object, "referenceVoltage");
    BlockConditions conditions;
    conditions.program = TextIn(object, "program").toStdString();
    conditions.board = BoardIn(ObjectIn(object, "board"));
    conditions.converter = ChoiceIn(object, "converter", converters);
    conditions.start = TimeIn(object, "start");
    conditions.end = TimeIn(object, "end");
    conditions.outcome = ChoiceIn(object, "outcome", outcomes);
    conditions.meanInterval = PositiveIn(object, "meanIntervalSeconds");
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
    try {
        CheckIsNotDevice(path);
        BlockConditions conditions = ParseConditions(LoadBytes(path, sizeLimit), codes);
        if (conditions.converter != converter) {
            Refuse(QStringLiteral("it belongs to a block of the other ADC"));
        }
        return {std::move(conditions), {}};
    } catch (const FileAccessError& error) {
        return {std::nullopt,
                std::string("the conditions of the reading are unknown: ") + error.what()};
    } catch (const BadDataError& error) {
        return {std::nullopt,
                "the conditions of the reading are unknown: " + path + ": " + error.what()};
    }
}

}  // namespace vx3260
