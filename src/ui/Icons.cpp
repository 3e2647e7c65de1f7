// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Icons.h"

/// The linker drops a static library's resources unless they are asked for, outside any namespace.
static void LoadIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace vx3260 {

QIcon ApplicationIcon() {
    LoadIcons();
    return QIcon(QStringLiteral(":/vx3260.png"));
}

}  // namespace vx3260
