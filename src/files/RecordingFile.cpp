// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/RecordingFile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <utility>

#include "files/CodeFile.h"
#include "files/FileFailure.h"
#include "files/FileSystem.h"

namespace vx3260 {
namespace {

constexpr std::size_t maxBuffer = std::size_t{1} << 16U;
constexpr std::chrono::milliseconds minBetweenWrites{5};
constexpr std::chrono::seconds syncInterval{10};
constexpr qint64 maxFirstLine = 1 << 10;
constexpr const char* firstColumns = "utc,elapsed_s,";
constexpr qint64 tailSize = 1 << 16;

/// The time and the seconds that a line begins with; empty for any other line.
std::optional<RecordedMoment> MomentOf(const QByteArray& line) {
    const QList<QByteArray> cells = line.split(',');
    if (line.startsWith('#') || cells.size() < 3) {
        return {};
    }
    const QDateTime utc = QDateTime::fromString(QString::fromLatin1(cells[0]), Qt::ISODateWithMs);
    bool isNumber = false;
    const double elapsed = cells[1].toDouble(&isNumber);
    if (!utc.isValid() || !isNumber) {
        return {};
    }
    return RecordedMoment{UtcTime(std::chrono::milliseconds(utc.toMSecsSinceEpoch())), elapsed};
}

/// The last of the whole lines that a text ends with.
std::optional<RecordedMoment> LastMomentIn(const QByteArray& text) {
    const QList<QByteArray> lines = text.split('\n');
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        if (std::optional<RecordedMoment> moment = MomentOf(*line)) {
            return moment;
        }
    }
    return {};
}

/// "FILE-002.csv" of "FILE.csv".
std::string NumberedPath(const std::string& path, int number) {
    constexpr int digits = 3;
    constexpr int decimal = 10;
    const QFileInfo info(QString::fromStdString(path));
    const QString suffix = info.suffix().isEmpty() ? QString() : u'.' + info.suffix();
    const QString name = info.completeBaseName() +
                         QStringLiteral("-%1").arg(number, digits, decimal, QLatin1Char('0')) +
                         suffix;
    const bool plain = info.path() == QLatin1String(".") && !path.starts_with("./");
    return QDir::toNativeSeparators(plain ? name : info.dir().filePath(name)).toStdString();
}

}  // namespace

std::string RecordingPlace::FirstPath() const {
    return numbered ? NumberedPath(path, 1) : path;
}

RecordingFile::RecordingFile(RecordingPlace place, Clock clock)
    : place_(std::move(place)), clock_(std::move(clock)) {
    path_ = place_.FirstPath();
    if (place_.start == RecordingStart::Append) {
        FindLastFile();
    }
    if (!FileExists(path_)) {
        return;
    }
    CheckIsNotDevice(path_);
    if (place_.start == RecordingStart::New) {
        throw FileAccessError("cannot write " + path_ +
                              ": the file exists; --append continues it, --force replaces it");
    }
    if (place_.start == RecordingStart::Append) {
        continues_ = true;
        ReadLastMoment();
    }
}

RecordingFile::~RecordingFile() {
    try {
        Close();
    } catch (const FileAccessError&) {
        // Reported already, or the recording ends by another error.
    }
}

std::string RecordingFile::NumberedPath(int number) const {
    return vx3260::NumberedPath(place_.path, number);
}

/// A recording without numbers has later files with some, after a SIGHUP. Files with lower numbers
/// may have been moved away.
void RecordingFile::FindLastFile() {
    const QFileInfo file(QString::fromStdString(place_.path));
    const QString suffix = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    const QRegularExpression numbered(QRegularExpression::anchoredPattern(
        QRegularExpression::escape(file.completeBaseName()) + QStringLiteral("-(\\d{3,9})") +
        QRegularExpression::escape(suffix)));
    const int first = place_.numbered ? 1 : 2;
    for (const QString& name : file.dir().entryList(QDir::Files | QDir::Hidden)) {
        const int number = numbered.match(name).captured(1).toInt();
        if (number >= std::max(first, number_) && FileExists(NumberedPath(number))) {
            number_ = number;
            path_ = NumberedPath(number);
        }
    }
}

std::string RecordingFile::NextPath() {
    do {
        ++number_;
    } while (place_.start != RecordingStart::Replace && FileExists(NumberedPath(number_)));
    return NumberedPath(number_);
}

void RecordingFile::ReadLastMoment() {
    QFile file(QString::fromStdString(path_));
    if (!file.open(QIODevice::ReadOnly)) {
        ThrowCannot("read", path_, file);
    }
    firstLine_ = file.readLine(maxFirstLine).toStdString();
    const qint64 size = file.size();
    // A tail of comments alone is read again, with more before it.
    for (qint64 tail = tailSize;; tail *= 2) {
        const qint64 begin = std::max<qint64>(0, size - tail);
        file.seek(begin);
        QByteArray text = file.read(size - begin);
        const qsizetype end = text.lastIndexOf('\n') + 1;
        text.truncate(end);
        // What the tail begins with may be the end of a line.
        lastMoment_ = LastMomentIn(begin == 0 ? text : text.mid(text.indexOf('\n') + 1));
        wholeLines_ = begin + end;
        if (lastMoment_ || begin == 0) {
            return;
        }
    }
}

void RecordingFile::Open(bool append) {
    file_ = std::make_unique<QFile>(QString::fromStdString(path_));
    const auto how = append ? QIODevice::ReadWrite : QIODevice::WriteOnly | QIODevice::Truncate;
    if (!file_->open(how | QIODevice::Unbuffered)) {
        ThrowCannot("write", path_, *file_);
    }
    written_ = append ? wholeLines_ : 0;
    lastSync_ = clock_();
}

/// The columns come first: numpy.genfromtxt takes the names from the first line, comment or not.
void RecordingFile::WriteHead(const std::string& gap) {
    if (!continues_ || wholeLines_ == 0) {
        buffer_ += columns_ + "\n";
    }
    buffer_ += gap;
    for (const std::string& comment : comments_) {
        buffer_ += "# " + comment + "\n";
    }
    Write();
}

/// A first line that is torn is one only where it is the beginning of the columns: any other file
/// without a line end is somebody else's.
void RecordingFile::RequireColumns() const {
    if (!continues_ || firstLine_ == columns_ + "\n" || columns_.starts_with(firstLine_)) {
        return;
    }
    const std::string line = firstLine_.substr(0, firstLine_.find_first_of("\r\n"));
    const bool isRecording = line.starts_with(firstColumns);
    throw FileAccessError("cannot append to " + path_ + ": " +
                          (isRecording ? "it has the columns " + line + ", not " + columns_
                                       : "it is not a recording, which begins with " + columns_));
}

std::int64_t RecordingFile::Begin(std::vector<std::string> comments, std::string columns,
                                  const std::string& gap) {
    comments_ = std::move(comments);
    columns_ = std::move(columns);
    RequireColumns();
    Open(continues_);
    std::int64_t cut = 0;
    std::string gapLine;
    if (continues_) {
        cut = file_->size() - wholeLines_;
        if ((cut > 0 && !file_->resize(wholeLines_)) || !file_->seek(wholeLines_)) {
            ThrowCannot("write", path_, *file_);
        }
        gapLine =
            "# gap: " + gap +
            (cut > 0 ? "; " + std::to_string(cut) + " bytes of a torn line were cut off" : "") +
            "\n";
    }
    WriteHead(gapLine);
    continues_ = false;
    return cut;
}

void RecordingFile::Line(std::string_view line) {
    buffer_.append(line).push_back('\n');
    ++lines_;
    if (buffer_.size() >= maxBuffer) {
        Write();
    }
}

void RecordingFile::Comment(std::string_view text) {
    buffer_.append("# ").append(text).push_back('\n');
    Write();
}

void RecordingFile::Tick() {
    const auto now = clock_();
    if (!buffer_.empty() && now - lastWrite_ >= minBetweenWrites) {
        Write();
    }
    if (unsynced_ && now - lastSync_ >= syncInterval) {
        StartSync();
    }
}

/// A full disk takes a part of what is written.
void RecordingFile::Write() {
    std::string_view rest = buffer_;
    while (!rest.empty()) {
        const qint64 taken = file_->write(rest.data(), static_cast<qint64>(rest.size()));
        if (taken <= 0) {
            EndTornLine(rest);
        }
        rest.remove_prefix(static_cast<std::size_t>(taken));
        written_ += taken;
    }
    buffer_.clear();
    lastWrite_ = clock_();
    unsynced_ = true;
}

/// Cuts off what the disk took of a line and throws the reason why it did not take the rest.
void RecordingFile::EndTornLine(std::string_view rest) {
    std::string reason;
    try {
        ThrowCannot("write", path_, *file_);
    } catch (const FileAccessError& error) {
        reason = error.what();
    }
    const std::string_view taken(buffer_.data(), buffer_.size() - rest.size());
    const std::size_t lineEnd = taken.rfind('\n');
    const std::size_t torn =
        lineEnd == std::string_view::npos ? taken.size() : taken.size() - lineEnd - 1;
    file_->resize(written_ - static_cast<std::int64_t>(torn));
    buffer_.clear();
    throw FileAccessError(reason + "; the lines before are in the file");
}

void RecordingFile::WaitForSync() {
    if (!sync_.valid()) {
        return;
    }
    if (const std::string reason = sync_.get(); !reason.empty()) {
        ThrowCannot("write", path_, reason);
    }
}

/// In a thread of its own: a slow disk must not make the reading miss conversions.
void RecordingFile::StartSync() {
    if (sync_.valid() && sync_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        return;
    }
    WaitForSync();
    sync_ = std::async(std::launch::async, [file = file_.get()] { return SyncToDisk(*file); });
    lastSync_ = clock_();
    unsynced_ = false;
}

void RecordingFile::BeginNext() {
    Close();
    const bool moved = !place_.numbered && !FileExists(place_.path);
    path_ = moved ? place_.path : NextPath();
    Open(false);
    WriteHead({});
}

void RecordingFile::Close() {
    if (!file_) {
        return;
    }
    // The thread of a sync uses the file until its end.
    struct Closing {
        RecordingFile& recording;
        ~Closing() {
            if (recording.sync_.valid()) {
                recording.sync_.wait();
            }
            recording.file_.reset();
        }
    } const closing{*this};
    Write();
    WaitForSync();
    StartSync();
    WaitForSync();
}

}  // namespace vx3260
