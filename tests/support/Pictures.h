// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QWidget>
#include <string>

namespace vx3260::test {

/// Saves a picture as NAME.png in the folder that VX3260_PICTURES names, if it names one.
inline void TakePicture(QWidget& form, const std::string& name) {
    const QString folder = qEnvironmentVariable("VX3260_PICTURES");
    if (!folder.isEmpty()) {
        form.grab().save(QDir(folder).filePath(QString::fromStdString(name + ".png")));
    }
}

}  // namespace vx3260::test
