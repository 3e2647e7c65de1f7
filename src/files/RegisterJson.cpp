// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/RegisterJson.h"

#include <optional>

#include "link/FilterRate.h"
#include "link/RegisterLookup.h"

namespace vx3260 {
namespace {

QJsonObject FieldsOf(const RegisterReading& reading) {
    QJsonObject fields;
    for (const RegisterMap::Field& field : reading.description.fields) {
        const std::int32_t code = field.CodeIn(reading.value);
        const std::optional<std::string_view> name = RegisterMap::NameOfCode(field, code);
        fields[QString::fromUtf8(field.name)] =
            name ? QJsonValue(QString::fromUtf8(*name)) : QJsonValue(code);
    }
    return fields;
}

}  // namespace

QJsonObject RegisterObject(const RegisterReading& reading) {
    const RegisterMap::RegisterAccess& access = reading.description.access;
    QJsonObject object{
        {"value", reading.value},
        {"hex", QString::fromStdString(RegisterMap::RegisterHex(reading.value, access))},
        {"fields", FieldsOf(reading)},
    };
    if (const std::optional<double> rate = UpdateRate(reading)) {
        object["updateRateHz"] = *rate;
    }
    return object;
}

}  // namespace vx3260
