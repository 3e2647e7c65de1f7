// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/JsonFields.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <cmath>

#include "files/RegisterJson.h"
#include "link/RegisterFields.h"
#include "numbers/FileErrors.h"

namespace vx3260 {
namespace {

constexpr int maxYear = 9999;

/// The status register tells how things stand at a moment, not how the chip is set.
bool IsSetting(const RegisterMap::RegisterDescription& description) {
    return description.access.writeByte != 0;
}

QLatin1String NameOf(QJsonValue::Type type) {
    switch (type) {
        case QJsonValue::Bool:
            return QLatin1String("true or false");
        case QJsonValue::String:
            return QLatin1String("a text");
        case QJsonValue::Array:
            return QLatin1String("a list");
        default:
            return QLatin1String("an object");
    }
}

/// A terminal would act on control characters in a file from elsewhere.
QString Printable(QString text) {
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Control; });
    return text;
}

QJsonValue Member(const QJsonObject& object, const char* name, QJsonValue::Type type) {
    QJsonValue value = object[QLatin1String(name)];
    if (value.isUndefined()) {
        RefuseJson(QStringLiteral("\"%1\" is missing").arg(name));
    }
    if (value.type() != type) {
        RefuseJson(QStringLiteral("\"%1\" is not %2").arg(name, NameOf(type)));
    }
    return value;
}

}  // namespace

void RefuseJson(const QString& reason) {
    throw BadDataError(reason.toStdString());
}

QJsonObject ParseJsonObject(const std::string& text) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(text), &error);
    if (error.error != QJsonParseError::NoError) {
        RefuseJson(QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset));
    }
    return document.object();
}

void CheckFormat(const QJsonObject& object, QLatin1String format, int version,
                 std::string_view what) {
    if (object[QLatin1String("format")].toString() != format) {
        RefuseJson(QStringLiteral("it is not %1")
                       .arg(QString::fromUtf8(what.data(), static_cast<qsizetype>(what.size()))));
    }
    const double found = object[QLatin1String("version")].toDouble();
    if (found > version) {
        RefuseJson(QStringLiteral("it is of version %1, newer than this program's %2")
                       .arg(found)
                       .arg(version));
    }
    if (found != version) {
        RefuseJson(QStringLiteral("it has no valid version"));
    }
}

QString TimeValue(UtcTime time) {
    return QString::fromStdString(IsoTimeText(time));
}

QString ConverterValue(Converter converter) {
    const std::string_view word = TraitsOf(converter).word;
    return QString::fromLatin1(word.data(), static_cast<qsizetype>(word.size()));
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

QString TextIn(const QJsonObject& object, const char* name) {
    return Printable(Member(object, name, QJsonValue::String).toString());
}

QJsonObject ObjectIn(const QJsonObject& object, const char* name) {
    return Member(object, name, QJsonValue::Object).toObject();
}

UtcTime TimeIn(const QJsonObject& object, const char* name) {
    const QDateTime time = QDateTime::fromString(TextIn(object, name), Qt::ISODateWithMs).toUTC();
    // A time zone leads out of the years that can be written.
    if (!time.isValid() || time.date().year() < 1 || time.date().year() > maxYear) {
        RefuseJson(QStringLiteral("\"%1\" is not a time").arg(name));
    }
    return UtcTime(std::chrono::milliseconds(time.toMSecsSinceEpoch()));
}

Converter ConverterIn(const QJsonObject& object, const char* name) {
    const QString word = TextIn(object, name);
    const std::optional<Converter> converter = ConverterNamed(word.toStdString());
    if (!converter) {
        RefuseJson(QStringLiteral("\"%1\" is not a valid value for \"%2\"").arg(word, name));
    }
    return *converter;
}

std::optional<double> PositiveIn(const QJsonObject& object, const char* name) {
    const QJsonValue value = object[QLatin1String(name)];
    if (value.isNull() || value.isUndefined()) {
        return std::nullopt;
    }
    const double number = value.toDouble();
    if (!(static_cast<float>(number) > 0) || !std::isfinite(static_cast<float>(number))) {
        RefuseJson(QStringLiteral("\"%1\" is not a number above 0").arg(name));
    }
    return number;
}

std::optional<std::int64_t> CountIn(const QJsonObject& object, const char* name) {
    const QJsonValue value = object[QLatin1String(name)];
    if (value.isNull() || value.isUndefined()) {
        return std::nullopt;
    }
    const qint64 count = value.toInteger(-1);
    if (count < 0) {
        RefuseJson(QStringLiteral("\"%1\" is not a count").arg(name));
    }
    return count;
}

BoardName BoardIn(const QJsonObject& object) {
    BoardName board;
    board.label = Member(object, "simulated", QJsonValue::Bool).toBool() ? SimulatedBoardLabel : "";
    board.port = TextIn(object, "port").toStdString();
    for (const auto& fault : Member(object, "faults", QJsonValue::Array).toArray()) {
        board.faults.push_back(Printable(fault.toString()).toStdString());
    }
    return board;
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
            RefuseJson(QStringLiteral("the register \"%1\" has no valid value")
                           .arg(QString::fromUtf8(description.name)));
        }
        registers.Set(description.access, static_cast<std::int32_t>(value));
    }
    return registers;
}

}  // namespace vx3260
