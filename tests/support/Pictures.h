#pragma once

#include <QDir>
#include <QImage>
#include <QWidget>

namespace vx3260::test {

/// Saves a picture as NAME.png in the folder that VX3260_PICTURES names, if it names one.
inline void TakePicture(const QImage& picture, const char* name) {
    const QString folder = qEnvironmentVariable("VX3260_PICTURES");
    if (!folder.isEmpty()) {
        picture.save(QDir(folder).filePath(QString::fromLatin1(name) + QStringLiteral(".png")));
    }
}

/// The same of a form.
inline void TakePicture(QWidget& form, const char* name) {
    if (qEnvironmentVariableIsSet("VX3260_PICTURES")) {
        TakePicture(form.grab().toImage(), name);
    }
}

}  // namespace vx3260::test
