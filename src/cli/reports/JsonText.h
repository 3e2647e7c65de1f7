// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <string>
#include <string_view>

namespace vx3260 {

/// The label of a board; null when it is empty, which a real board's is.
QJsonValue BoardValue(std::string_view boardLabel);

/// The object as a text that is easy to read, ended by a line break.
std::string JsonText(const QJsonObject& object);

}  // namespace vx3260
