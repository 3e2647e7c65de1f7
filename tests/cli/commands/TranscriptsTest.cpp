// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Transcripts.h"

#include "cli/commands/CliRun.h"

namespace vx3260::test {
namespace {

/// Runs one paragraph of Transcripts.txt.
class Transcript {
  public:
    explicit Transcript(TranscriptFiles& files) : files_(files) {}

    void Take(const QString& verb, const QString& rest) {
        const std::string text = files_.Resolved(rest).toStdString();
        if (files_.Take(verb, rest)) {
            return;
        }
        if (verb == QStringLiteral("width")) {
            width_ = rest.toUInt();
        } else if (verb == QStringLiteral("$")) {
            command_ = text;
            outcome_ = RunProgram(text, width_);
        } else if (verb == QStringLiteral("exit")) {
            exitCode_ = std::stoi(text);
        } else if (verb == QStringLiteral(">")) {
            out_ += text + "\n";
        } else if (verb == QStringLiteral("~")) {
            partsOfOut_ = true;
            EXPECT_TRUE(Has(outcome_.out, text)) << command_;
        } else if (verb == QStringLiteral("!")) {
            EXPECT_TRUE(Has(outcome_.err, text)) << command_;
        } else if (verb == QStringLiteral("quiet")) {
            EXPECT_EQ(outcome_.err, "") << command_;
        }
    }

    void End() const {
        EXPECT_EQ(static_cast<int>(outcome_.exitCode), exitCode_) << command_ << outcome_.err;
        if (!partsOfOut_) {
            EXPECT_EQ(outcome_.out, out_) << command_;
        }
    }

  private:
    TranscriptFiles& files_;
    std::size_t width_ = 80;
    std::string command_;
    Outcome outcome_{};
    int exitCode_ = 0;
    std::string out_;
    bool partsOfOut_ = false;
};

TEST(CommandLine, AnswersAsInTheTranscripts) {
    TranscriptFiles files;
    for (const QStringList& lines : Transcripts()) {
        Transcript transcript(files);
        for (const QString& line : lines) {
            const QString verb = line.section(QLatin1Char(' '), 0, 0);
            transcript.Take(verb, line.mid(verb.size() + 1));
        }
        transcript.End();
    }
}

}  // namespace
}  // namespace vx3260::test
