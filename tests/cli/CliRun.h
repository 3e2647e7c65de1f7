// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands/RunCli.h"
#include "options/ExitCodes.h"
#include "support/Recorders.h"

namespace vx3260::test {

inline testing::AssertionResult Has(const std::string& text, const std::string& part) {
    return testing::IsSubstring("part", "text", part, text);
}

struct Outcome {
    ExitCode exitCode;
    std::string out;
    std::string err;
};

/// The program inside the test's process, on Windows 2000; spaces separate the command line's
/// words, of which '' is an empty one.
inline Outcome RunProgram(const std::string& commandLine, std::size_t outWidth = 80) {
    std::istringstream words(commandLine);
    std::vector<std::string> arguments{std::istream_iterator<std::string>(words), {}};
    std::replace(arguments.begin(), arguments.end(), std::string("''"), std::string());
    std::ostringstream out;
    std::ostringstream err;
    RecordedSystem system;
    system.version = {2, 5, 0};
    system.commandLine = commandLine;
    const int exitCode = RunCli(arguments, system, {out, err, false, outWidth});
    return {static_cast<ExitCode>(exitCode), out.str(), err.str()};
}

inline std::ptrdiff_t Lines(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

inline QJsonObject Parsed(const Outcome& outcome) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(outcome.out)).object();
}

}  // namespace vx3260::test
