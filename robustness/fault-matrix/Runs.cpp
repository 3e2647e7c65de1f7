// SPDX-License-Identifier: GPL-3.0-or-later
#include "Runs.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <memory>
#include <span>
#include <sstream>
#include <string_view>
#include <utility>

#include "CountedPort.h"
#include "cli/commands/CommandSet.h"
#include "cli/commands/RunCli.h"
#include "link/Calibration.h"
#include "link/Serial.h"
#include "ports/FaultyPort.h"
#include "support/Recorders.h"

namespace vx3260::matrix {
namespace {

const std::string measured = "--words 13 --count 10 --output ";

const BoardCommand commandLines[] = {
    {"check", 1},
    {"registers"},
    {"registers filter status --format json"},
    {"set mode mode=power-down"},
    {"set main-control range=20mV polarity=unipolar"},
    {"set io-control p3-direction=output p3=high"},
    {"calibrate internal-zero", 1},
    {"calibrate internal-full", 1},
    {"calibrate system-zero", 1},
    {"calibrate system-full", 1},
    {"save @settings.script --force"},
    {"restore @settings.script"},
    {"compare @settings.script"},
    {"export --output @export.h --force"},
    {"reset hardware", 0, false},
    {"reset software", 0, false},
    {"read % --count 4 --output @block.dat --force", 2},
    {"read % --count 4 --format csv", 2},
    {"read % --count 2 --format json", 2},
    {"record % --duration 120ms --output @%.csv --append", 3},
    {"record % --duration 120ms --output @%.csv --force", 3},
    {"record both --duration 120ms --output @both.csv --force --reset-on-timeout", 6},
    {"noise % --count 10", 2},
    {"characterise main --ranges 20mV,2.56V " + measured + "@main-characterised --force", 2},
    {"characterise main --ranges 20mV,2.56V " + measured + "@main-begun --resume", 2},
    {"characterise aux " + measured + "@aux-characterised --force", 2},
    {"characterise aux " + measured + "@aux-begun --resume", 2},
    {"script @lines.script", 2},
    {"--trace @trace.vcd read % --count 2", 2},
};

/// `text` with each `mark` replaced.
std::string Replaced(std::string text, char mark, std::string_view by) {
    for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += by.size()) {
        text.replace(at, 1, by);
    }
    return text;
}

std::vector<std::string> WordsOf(const std::string& line) {
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), {}};
}

}  // namespace

std::vector<BoardCommand> BoardCommands() {
    std::vector<BoardCommand> commands;
    for (const BoardCommand& command : commandLines) {
        for (const std::string_view converter : {"main", "aux"}) {
            const std::string words = Replaced(command.words, '%', converter);
            if (commands.empty() || commands.back().words != words) {
                commands.push_back({words, command.waits, command.verifies});
            }
        }
    }
    return commands;
}

std::vector<std::string> CommandsLeftOut() {
    static constexpr std::string_view withoutBoard[] = {"ports", "histogram", "spectrum",
                                                        "stability", "report"};
    CLI::App parser;
    CommandSet const commands(parser);
    std::vector<std::string> leftOut;
    for (const CLI::App* const command : parser.get_subcommands({})) {
        const std::string& name = command->get_name();
        const bool tried = std::ranges::any_of(commandLines, [&name](const BoardCommand& line) {
            const std::vector<std::string> words = WordsOf(line.words);
            return std::ranges::find(words, name) != words.end();
        });
        if (!tried && std::ranges::find(withoutBoard, name) == std::end(withoutBoard)) {
            leftOut.push_back(name);
        }
    }
    return leftOut;
}

RunResult Run(const BoardCommand& command, const std::string& fault, const std::string& folder,
              std::int64_t maxAccesses) {
    std::vector<std::string> words = WordsOf(Replaced(command.words, '@', folder + "/"));
    words.emplace_back("--simulated");
    if (!fault.empty()) {
        words.push_back("--fault=" + fault);
    }
    std::ostringstream out;
    std::ostringstream err;
    test::RecordedSystem system;
    AccessCount count{.limit = maxAccesses};
    const auto open = [&count](const PortChoice& choice, const std::int16_t& address) {
        OpenedPort opened = OpenPort(choice, address);
        opened.port = std::make_unique<CountedPort>(std::move(opened.port), count);
        return opened;
    };
    RunResult result;
    try {
        result.code = static_cast<ExitCode>(RunCli(words, system, {out, err}, open));
    } catch (const TooManyAccesses&) {
        result.code.reset();
    }
    result.out = out.str();
    result.err = err.str();
    result.accesses = count.made;
    return result;
}

std::vector<std::string> FaultsFor(std::int64_t accesses) {
    std::vector<std::int64_t> goneAfter = {0, 20, 200};
    for (int part = 1; part < 8; ++part) {
        goneAfter.push_back(accesses * part / 8);
    }
    // The last accesses of a command show whether it believes what it has just read.
    for (const int before : {700, 550, 400, 300, 220, 150, 100, 60, 30, 9, 1}) {
        goneAfter.push_back(accesses - before);
    }
    constexpr std::int64_t flipEvery[] = {1, 2, 8, 31, 1000, 20000};
    std::vector<std::string> faults;
    for (const FaultDescription& fault : KnownFaults()) {
        const std::string name(fault.name);
        if (!name.ends_with("=N")) {
            faults.push_back(name);
            continue;
        }
        const std::string prefix = name.substr(0, name.size() - 1);
        const bool gone = name.starts_with("board-gone");
        for (const std::int64_t number :
             gone ? std::span<const std::int64_t>(goneAfter) : flipEvery) {
            faults.push_back(prefix + std::to_string(std::max<std::int64_t>(number, gone ? 0 : 1)));
        }
    }
    return faults;
}

std::int64_t MaxAccesses(const BoardCommand& command, std::int64_t onGoodBoard) {
    constexpr std::int64_t readAgain = 3;
    constexpr std::int64_t checks = 20000;
    const bool calibrates = command.words.starts_with("calibrate");
    const std::int64_t polls = calibrates ? CalibrationPollLimit : PollLimit;
    return readAgain * onGoodBoard + checks + command.waits * polls;
}

}  // namespace vx3260::matrix
