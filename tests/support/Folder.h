#pragma once

#include <QTemporaryDir>
#include <fstream>
#include <iterator>
#include <string>

namespace vx3260::test {

/// A folder of files that goes with the test.
class Folder {
  public:
    std::string Path(const std::string& name) const {
        return folder_.filePath(QString::fromStdString(name)).toStdString();
    }

    std::string Make(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }

    std::string Bytes(const std::string& name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    QTemporaryDir folder_;
};

}  // namespace vx3260::test
