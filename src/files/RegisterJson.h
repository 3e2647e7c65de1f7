// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>

#include "link/RegisterReading.h"

namespace vx3260 {

/// What a register held, for JSON: "value", "hex" and its "fields" by name; of the filter register
/// also "updateRateHz".
QJsonObject RegisterObject(const RegisterReading& reading);

}  // namespace vx3260
