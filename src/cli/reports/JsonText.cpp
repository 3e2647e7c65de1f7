// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/JsonText.h"

#include <QJsonDocument>

namespace vx3260 {

QJsonValue BoardValue(std::string_view badge) {
    return badge.empty() ? QJsonValue() : QJsonValue(QString::fromUtf8(badge));
}

std::string JsonText(const QJsonObject& object) {
    return QJsonDocument(object).toJson().toStdString();
}

}  // namespace vx3260
