// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QLatin1String>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "link/BlockConditions.h"

/// What the JSON files of this program have in common. The functions that read throw BadDataError,
/// whose message follows the name of the file.
namespace vx3260 {

/// Throws BadDataError.
[[noreturn]] void RefuseJson(const QString& reason);

/// The object that a text is.
QJsonObject ParseJsonObject(const std::string& text);

/// Requires "format" to be this one and "version" not to be a newer one. `what` is what a file of
/// that format is called: "a conditions file".
void CheckFormat(const QJsonObject& object, QLatin1String format, int version,
                 std::string_view what);

/// The number; null where it is not known.
template <typename Number>
QJsonValue OrNull(const std::optional<Number>& number) {
    using Kept = std::conditional_t<std::is_integral_v<Number>, qint64, double>;
    return number ? QJsonValue(static_cast<Kept>(*number)) : QJsonValue();
}

/// A time in ISO 8601, with milliseconds.
QString TimeValue(UtcTime time);

/// "main" or "aux".
QString ConverterValue(Converter converter);

QJsonObject BoardObject(const BoardName& board);

/// All settings of the chip by their names, each as RegisterObject; null where unknown.
QJsonObject RegistersObject(const RegisterSnapshot& registers);

/// Members that must be there.
QString TextIn(const QJsonObject& object, const char* name);
QJsonObject ObjectIn(const QJsonObject& object, const char* name);
UtcTime TimeIn(const QJsonObject& object, const char* name);
Converter ConverterIn(const QJsonObject& object, const char* name);

/// A number above 0 in single precision; nothing for null and where it is missing.
std::optional<double> PositiveIn(const QJsonObject& object, const char* name);

/// The same for a count from 0 on.
std::optional<std::int64_t> CountIn(const QJsonObject& object, const char* name);

/// What BoardObject and RegistersObject have made.
BoardName BoardIn(const QJsonObject& object);
RegisterSnapshot RegistersIn(const QJsonObject& object);

}  // namespace vx3260
