#pragma once

#include <QIcon>

namespace vx3260 {

/// The program's own icon.
QIcon ApplicationIcon();

}  // namespace vx3260
