// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/JsonText.h"

#include <QJsonDocument>

namespace vx3260 {

QJsonValue BoardValue(std::string_view boardLabel) {
    return boardLabel.empty() ? QJsonValue() : QJsonValue(QString::fromUtf8(boardLabel));
}

std::string JsonText(const QJsonObject& object) {
    return QJsonDocument(object).toJson().toStdString();
}

}  // namespace vx3260
