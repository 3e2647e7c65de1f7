// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/NoSettingsFile.h"

#include <QSettings>

namespace vx3260 {

/// No file can be made below a device, so reading finds nothing and writing fails silently.
void PreventSettingsFile() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

void DiscardDialog::operator()(QFileDialog* dialog) const {
#ifdef _WIN32
    dialog->hide();
    dialog->setParent(nullptr);
#else
    delete dialog;
#endif
}

}  // namespace vx3260
