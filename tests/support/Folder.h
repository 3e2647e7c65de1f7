// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <fstream>
#include <sstream>
#include <string>

#include "numbers/FilePath.h"

namespace vx3260::test {

/// A folder of files that is removed at the end of the test.
class Folder {
  public:
    Folder() {}  // not defaulted: clang 14 would delete the constructors of tests with a const one

    /// With the system's separators.
    std::string Path(const std::string& name) const {
        return QDir::toNativeSeparators(folder_.filePath(QString::fromStdString(name)))
            .toStdString();
    }

    /// The system's message for a file that does not exist.
    static std::string ReasonOfNoFile(const std::string& path) {
        QFile file(QString::fromStdString(path));
        file.open(QIODevice::ReadOnly);
        return file.errorString().toStdString();
    }

    std::string Make(const std::string& name, const std::string& bytes) const {
        std::ofstream(FilePath(Path(name)), std::ios::binary) << bytes;
        return Path(name);
    }

    std::string Bytes(const std::string& name) const {
        std::ifstream file(FilePath(Path(name)), std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }

  private:
    QTemporaryDir folder_;
};

}  // namespace vx3260::test
