// SPDX-License-Identifier: GPL-3.0-or-later
// A line of a script, which is parsed as the commands do and not run. Making the parser takes the
// most time, so this target is slow.

#include <CLI/CLI.hpp>
#include <iterator>
#include <sstream>

#include "Fuzzing.h"
#include "cli/commands/CommandSet.h"

using namespace vx3260;

namespace {

bool IsAccepted(const std::string& line) {
    CLI::App parser("A line of a script");
    CommandSet const commands(parser);
    try {
        parser.parse(line);
        return commands.Chosen().Chosen();
    } catch (const CLI::ParseError&) {
        return false;
    }
}

std::string Quoted(const std::string& line) {
    std::istringstream stream(line);
    std::string quoted;
    for (std::string word; stream >> word;) {
        quoted += '"' + word + "\" ";
    }
    return quoted;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string line(fuzzing::TextOf(data, size));
    if (IsAccepted(line) && line.find_first_of("\"'`\\") == std::string::npos) {
        fuzzing::Require(IsAccepted(Quoted(line)), "quotes around the words change nothing");
    }
    return 0;
}
