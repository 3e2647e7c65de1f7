// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/NoSettingsFile.h"

#include <QSettings>

namespace vx3260 {

void PreventSettingsFile() {
#ifndef QT_NO_SETTINGS
    // No file can be made below a device, so reading finds nothing and writing fails silently.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
#endif
}

}  // namespace vx3260
