// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>

#include "cli/CliRun.h"
#include "ports/OpenPort.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

/// Runs one paragraph of Transcripts.txt.
class Transcript {
  public:
    explicit Transcript(const std::string& filePrefix) : files_(filePrefix) {}

    void Take(const std::string& kind, const std::string& rest) {
        const std::string text = Unescaped(rest);
        if (kind == "file") {
            file_ = files_ + text;
            std::ofstream(FilePath(file_), std::ios::binary);
        } else if (kind == "|") {
            std::ofstream(FilePath(file_), std::ios::binary | std::ios::app) << text << '\n';
        } else if (kind == "$") {
            command_ = text;
            outcome_ = RunProgram(text);
        } else if (kind == "exit") {
            exitCode_ = std::stoi(text);
        } else if (kind == ">") {
            out_ += text + "\n";
        } else if (kind == "~") {
            partsOfOut_ = true;
            EXPECT_TRUE(Has(outcome_.out, text)) << command_;
        } else if (kind == "!") {
            EXPECT_TRUE(Has(outcome_.err, text)) << command_;
        }
    }

    void End() const {
        EXPECT_EQ(static_cast<int>(outcome_.exitCode), exitCode_) << command_ << outcome_.err;
        if (!partsOfOut_) {
            EXPECT_EQ(outcome_.out, out_) << command_;
        }
    }

  private:
    std::string Unescaped(const std::string& text) const {
        return QString::fromStdString(text)
            .replace(QStringLiteral("\\n"), QStringLiteral("\n"))
            .replace(QLatin1Char('@'), QString::fromStdString(files_))
            .toStdString();
    }

    std::string files_;
    std::string file_;
    std::string command_;
    Outcome outcome_{};
    int exitCode_ = 0;
    std::string out_;
    bool partsOfOut_ = false;
};

TEST(CommandLine, AnswersAsInTheTranscripts) {
    const Folder folder;
    QFile file(QStringLiteral(":/Transcripts.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList paragraphs = QString::fromUtf8(file.readAll()).split(QStringLiteral("\n\n"));
    for (const QString& paragraph : paragraphs) {
        const QStringList lines = paragraph.split(QLatin1Char('\n'));
        if (!paragraph.contains(QLatin1Char('$')) ||
            (lines.contains(QStringLiteral("devices")) && !RealPortsAreDevices)) {
            continue;
        }
        Transcript transcript(folder.Path(""));
        for (const QString& line : lines) {
            const QString kind = line.section(QLatin1Char(' '), 0, 0);
            transcript.Take(kind.toStdString(), line.mid(kind.size() + 1).toStdString());
        }
        transcript.End();
    }
}

}  // namespace
}  // namespace vx3260::test
