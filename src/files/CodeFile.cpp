// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/CodeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QOperatingSystemVersion>
#include <QRegularExpression>
#include <QSaveFile>
#include <QString>
#include <QTemporaryFile>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <ostream>
#include <system_error>

#include "files/FileFailure.h"
#include "files/FileSystem.h"

namespace vx3260 {
namespace {

constexpr const char* standardInputName = "standard input";

/// 128 bytes for each of the lines that a block can have.
constexpr std::size_t maxBytesOfCodes = (MaxCodesInBlock + 1) * 128;

/// The reported size is only a hint: it is 0 for a pipe, and a file may grow.
std::size_t ChunkSize(const QFile& file, std::size_t maxBytes) {
    constexpr std::size_t minBytes = std::size_t{1} << 16U;
    return std::clamp(static_cast<std::size_t>(file.size()) + 1, minBytes, maxBytes + 1);
}

std::string ReadBounded(QFile& file, const std::string& name, const SizeLimit& limit) {
    const std::size_t chunk = ChunkSize(file, limit.bytes);
    std::string bytes;
    std::size_t size = 0;
    qint64 got = 0;
    do {
        if (size == bytes.size()) {
            bytes.resize(size + chunk);
        }
        got = file.read(bytes.data() + size, static_cast<qint64>(bytes.size() - size));
        if (got < 0 || file.error() != QFileDevice::NoError) {
            ThrowCannot("read", name, file);
        }
        size += static_cast<std::size_t>(got);
        if (size > limit.bytes) {
            throw BadDataError(name + ": more than " + std::to_string(limit.bytes) + " bytes; " +
                               std::string(limit.reason));
        }
    } while (got > 0);
    bytes.resize(size);
    return bytes;
}

/// Unbuffered: QSaveFile would commit a file although its last buffer did not fit on the disk.
void OpenForSaving(QSaveFile& file, const std::string& path) {
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        ThrowCannot("write", path, file);
    }
}

/// Repeats partial writes: the next write reports why the rest was not accepted.
void WriteAll(QFileDevice& file, std::string_view text, std::string_view name) {
    while (!text.empty()) {
        const qint64 taken = file.write(text.data(), static_cast<qint64>(text.size()));
        if (taken <= 0) {
            ThrowCannot("write", name, file);
        }
        text.remove_prefix(static_cast<std::size_t>(taken));
    }
}

/// QSaveFile syncs too, but ignores a failure.
void Sync(const QFileDevice& file, std::string_view name) {
    const std::string reason = SyncToDisk(file);
    if (!reason.empty()) {
        ThrowCannot("write", name, reason);
    }
}

void SaveWhole(const std::string& path, std::string_view bytes) {
    QSaveFile file(QString::fromStdString(path));
    OpenForSaving(file, path);
    WriteAll(file, bytes, path);
    Sync(file, path);
    if (!file.commit()) {
        ThrowCannot("write", path, file);
    }
}

/// Writes a new file with random letters appended to this name, and with the permissions of the
/// file of this name. Returns its path.
std::string SaveNew(const QString& path, std::string_view bytes) {
    const std::string name = path.toStdString();
    QTemporaryFile file(path + QStringLiteral(".XXXXXX"));
    if (!file.open()) {
        ThrowCannot("write", name, file);
    }
    WriteAll(file, bytes, name);
    if (!file.flush()) {
        ThrowCannot("write", name, file);
    }
    Sync(file, name);
    // The file gets its name only now, where the system can make one without.
    std::string saved = file.fileName().toStdString();
    if (saved.empty()) {
        ThrowCannot("write", name, file);
    }
    file.setAutoRemove(false);
    if (QFileInfo::exists(path)) {
        file.setPermissions(QFile::permissions(path));
    }
    return saved;
}

/// Writes a new file beside this one, or in the temporary folder if that fails. Returns its path.
/// The message is about the first place, which the user knows.
std::string SaveBeside(const std::string& path, std::string_view bytes) {
    const QString name = QString::fromStdString(path);
    std::optional<FileAccessError> failure;
    for (const QString& place : {name, QDir::temp().filePath(QFileInfo(name).fileName())}) {
        try {
            return SaveNew(place, bytes);
        } catch (const FileAccessError& error) {
            if (!failure) {
                failure = error;
            }
        }
    }
    throw FileAccessError(*failure);
}

/// Ends the message about a file that could not be written.
std::string KeptText(const std::string& path, std::string_view bytes) {
    try {
        return "; the codes were kept in " + SaveBeside(path, bytes);
    } catch (const FileAccessError&) {
        return {};
    }
}

/// A block may have taken minutes to read, so it must not be lost when a place that was writable
/// before is not any more, for example because another program has opened the file.
void SaveSomewhere(const std::string& path, std::string_view bytes) {
    try {
        SaveWhole(path, bytes);
    } catch (const FileAccessError& error) {
        throw FileAccessError(error.what() + KeptText(path, bytes));
    }
}

/// The path with all links among its folders followed; its last part may still be one.
QString WithRealFolder(const QString& path) {
    const QFileInfo info(path);
    return info.dir().canonicalPath() + u'/' + info.fileName();
}

/// The names of open files may lead to one on a disk, but its replacement would not be open. Links
/// are followed one by one: one of them may lead through such a name.
bool NamesOpenFile(QString path) {
    constexpr int maxLinks = 40;
    const QString prefixes[] = {QStringLiteral("/dev/fd/"), QStringLiteral("/dev/std"),
                                QStringLiteral("/proc/")};
    for (int links = 0; links < maxLinks; ++links) {
        path = WithRealFolder(path);
        if (std::any_of(std::begin(prefixes), std::end(prefixes),
                        [&path](const QString& prefix) { return path.startsWith(prefix); })) {
            return true;
        }
        const QFileInfo info(path);
        if (!info.isSymLink()) {
            return false;
        }
        path = info.symLinkTarget();
    }
    return false;
}

bool IsWrittenDirectly(const std::string& path) {
    const QFileInfo info(QString::fromStdString(path));
    return NamesOpenFile(QString::fromStdString(path)) ||
           (info.exists() && !info.isFile() && !info.isDir());
}

/// Windows maps these names to devices, in every folder and with every extension.
void CheckNameIsFree(const std::string& path) {
    static const QRegularExpression keptNames(QStringLiteral("^(con|prn|aux|nul|(com|lpt)[1-9])$"),
                                              QRegularExpression::CaseInsensitiveOption);
    if (QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows &&
        keptNames.match(QFileInfo(QString::fromStdString(path)).baseName()).hasMatch()) {
        throw FileAccessError(path + ": Windows keeps this name for a device; choose another");
    }
}

/// Appends to a file that is reached by the name of an open one, so that nothing of it is lost.
std::unique_ptr<QFile> OpenDevice(const std::string& path) {
    auto device = std::make_unique<QFile>(QString::fromStdString(path));
    const auto how = QFileInfo(*device).isFile() ? QIODevice::Append : QIODevice::Truncate;
    if (!device->open(QIODevice::WriteOnly | QIODevice::Unbuffered | how)) {
        ThrowCannot("write", path, *device);
    }
    return device;
}

bool IsStandardOutput(std::string_view target) {
    return target.empty() || target == "-" || target == "/dev/stdout";
}

const SizeLimit& CodesLimit() {
    static const std::string reason =
        "a data file has at most " + std::to_string(MaxCodesInBlock) + " lines of one code each";
    static const SizeLimit limit{maxBytesOfCodes, reason};
    return limit;
}

}  // namespace

bool FileExists(const std::string& path) {
    return QFileInfo::exists(QString::fromStdString(path));
}

std::string LoadBytes(const std::string& path, const SizeLimit& limit) {
    QFile file(QString::fromStdString(path));
    if (QFileInfo(file).isDir()) {
        ThrowCannot("read", path, std::generic_category().message(EISDIR));
    }
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        ThrowCannot("read", path, file);
    }
    if (QFileInfo(file).isFile()) {
        RefuseToWait(file);
    }
    return ReadBounded(file, path, limit);
}

std::string LoadStandardInput(const SizeLimit& limit) {
    constexpr int descriptor = 0;
    QFile file;
    if (!file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        ThrowCannot("read", standardInputName, file);
    }
    return ReadBounded(file, standardInputName, limit);
}

void CheckIsNotDevice(const std::string& path) {
    CheckNameIsFree(path);
    if (IsWrittenDirectly(path)) {
        throw FileAccessError(
            path + " is a pipe, a device or the name of an open file, not a regular file");
    }
}

void ReplaceFile(const std::string& path, std::string_view bytes) {
    CheckIsNotDevice(path);
    SaveWhole(path, bytes);
}

ParsedCodes LoadCodes(const std::string& path, Notation notation) {
    return ParseCodes(LoadBytes(path, CodesLimit()), notation, path);
}

ParsedCodes LoadCodesOfStandardInput(Notation notation) {
    return ParseCodes(LoadStandardInput(CodesLimit()), notation, standardInputName);
}

std::optional<Notation> LookOf(const std::string& path) {
    return NotationByLook(LoadBytes(path, CodesLimit()));
}

void WriteToStream(std::ostream& stream, std::string_view text, std::string_view name) {
    errno = 0;
    stream << text << std::flush;
    if (!stream) {
        throw CannotWrite(name);
    }
}

CodeWriter::CodeWriter(std::string path) : name_(std::move(path)) {
    CheckNameIsFree(name_);
    if (IsWrittenDirectly(name_)) {
        device_ = OpenDevice(name_);
        return;
    }
    // Only tried: if it stayed open, a program that is killed during the reading would leave its
    // temporary file behind.
    QSaveFile file(QString::fromStdString(name_));
    OpenForSaving(file, name_);
    file.cancelWriting();
}

CodeWriter::CodeWriter(std::string target, std::ostream& standardOutput)
    : CodeWriter(IsStandardOutput(target) ? CodeWriter(standardOutput)
                                          : CodeWriter(std::move(target))) {}

bool CodeWriter::WouldReplace() const {
    return IsFile() && FileExists(name_);
}

void CodeWriter::Write(std::string_view text) {
    if (stream_ != nullptr) {
        WriteToStream(*stream_, text, name_);
    } else if (device_ == nullptr) {
        SaveSomewhere(name_, text);
    } else {
        WriteAll(*device_, text, name_);
    }
}

std::string CodeWriter::WriteIncomplete(std::string_view text) {
    if (WouldReplace()) {
        return SaveBeside(name_, text);
    }
    Write(text);
    return name_;
}

}  // namespace vx3260
