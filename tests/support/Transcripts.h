// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QStringList>
#include <vector>

#include "ports/OpenPort.h"
#include "support/Folder.h"

namespace vx3260::test {

/// The paragraphs of the program's Transcripts.txt, by lines; lines that begin with # are comments.
/// A paragraph with the line "devices" is left out where printer ports are not devices.
inline std::vector<QStringList> Transcripts() {
    QFile file(QStringLiteral(":/Transcripts.txt"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<QStringList> paragraphs(1);
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        if (line.isEmpty() && !paragraphs.back().isEmpty()) {
            paragraphs.emplace_back();
        } else if (!line.isEmpty() && !line.startsWith(QLatin1Char('#'))) {
            paragraphs.back().append(line);
        }
    }
    for (QStringList& lines : paragraphs) {
        if (lines.removeAll(QStringLiteral("devices")) > 0 && !RealPortsAreDevices) {
            lines.clear();
        }
    }
    std::erase_if(paragraphs, [](const QStringList& lines) { return lines.isEmpty(); });
    return paragraphs;
}

/// The files that transcripts make and name.
class TranscriptFiles {
  public:
    /// With a file's path in the place of @NAME and line ends in that of \n and \r.
    QString Resolved(QString text) const {
        return text.replace(QStringLiteral("\\n"), QStringLiteral("\n"))
            .replace(QStringLiteral("\\r"), QStringLiteral("\r"))
            .replace(QLatin1Char('@'),
                     QString::fromStdString(folder_.Path("")) + QDir::separator());
    }

    std::string Bytes(const QString& name) const { return folder_.Bytes(name.toStdString()); }

    /// Carries out "file NAME", "| LINE" and "* COUNT LINE"; false for other lines. A backslash at
    /// the end of the line stands for no line end.
    bool Take(const QString& verb, const QString& rest) {
        if (verb == QStringLiteral("file")) {
            file_ = rest.toStdString();
            bytes_.clear();
        } else if (verb == QStringLiteral("|")) {
            bytes_ += Resolved(rest) + QLatin1Char('\n');
        } else if (verb == QStringLiteral("*")) {
            const QString line = Resolved(rest.section(QLatin1Char(' '), 1)) + QLatin1Char('\n');
            bytes_ += line.repeated(rest.section(QLatin1Char(' '), 0, 0).toInt());
        } else {
            return false;
        }
        folder_.Make(file_, bytes_.replace(QStringLiteral("\\\n"), QString()).toStdString());
        return true;
    }

  private:
    Folder folder_;
    std::string file_;
    QString bytes_;
};

}  // namespace vx3260::test
