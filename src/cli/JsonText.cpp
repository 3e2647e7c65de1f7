#include "cli/JsonText.h"

#include <QJsonDocument>

namespace vx3260 {

QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QJsonValue BoardValue(std::string_view badge) {
    return badge.empty() ? QJsonValue() : QJsonValue(ToQString(badge));
}

std::string JsonText(const QJsonObject& object) {
    return QJsonDocument(object).toJson().toStdString();
}

}  // namespace vx3260
