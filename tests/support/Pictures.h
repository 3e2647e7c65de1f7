#pragma once

#include <QDir>
#include <QWidget>

namespace vx3260::test {

/// Saves a picture of a form as NAME.png in the folder that VX3260_PICTURES names, if it names one.
inline void TakePicture(QWidget& form, const char* name) {
    const QString folder = qEnvironmentVariable("VX3260_PICTURES");
    if (folder.isEmpty()) {
        return;
    }
    form.grab().save(QDir(folder).filePath(QString::fromLatin1(name) + QStringLiteral(".png")));
}

}  // namespace vx3260::test
