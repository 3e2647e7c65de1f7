// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace vx3260 {

/// The program's own icon.
QIcon ApplicationIcon();

}  // namespace vx3260
