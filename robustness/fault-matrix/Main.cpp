// SPDX-License-Identifier: GPL-3.0-or-later
// Every command that reaches a board on a simulated board with every fault.
// Usage: fault-matrix FOLDER PART PARTS   FOLDER is empty; of all runs every PARTSth is made

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <limits>
#include <regex>
#include <string>
#include <vector>

#include "FileCheck.h"
#include "Runs.h"

using namespace vx3260;
using namespace vx3260::matrix;

namespace {

constexpr std::int64_t anyNumber = std::numeric_limits<std::int64_t>::max();

/// What the commands find, made on a good board; the characterisation that was begun lacks some
/// settings.
Files MakeFiles(const std::string& folder) {
    std::ofstream(folder + "/lines.script")
        << "set aux-control enable=on\nregisters filter\nread aux --count 2\n";
    const auto make = [&folder](const std::string& words, const std::string& fault) {
        return Run({.words = words}, fault, folder, anyNumber).accesses;
    };
    for (const char* const words :
         {"save @settings.script", "export --output @export.h",
          "read main --count 4 --output @block.dat",
          "record main --duration 120ms --output @main.csv",
          "record aux --duration 120ms --output @aux.csv",
          "record both --duration 120ms --output @both.csv", "--trace @trace.vcd check"}) {
        make(words, "");
    }
    for (const std::string converter : {"main", "aux"}) {
        const std::string ranges = converter == "main" ? " --ranges 20mV,2.56V" : "";
        const std::string words =
            "characterise " + converter + ranges + " --words 13 --count 10 --output @" + converter;
        const std::int64_t accesses = make(words + "-characterised", "");
        make(words + "-begun", "board-gone=" + std::to_string(accesses * 2 / 3));
    }
    return FilesIn(folder);
}

/// Without spaces, the times of the day and the name of the fault, which results have too.
std::string Timeless(const std::string& text) {
    static const std::regex changing(
        R"(\d{4}-\d\d-\d\d[T ]\d\d:\d\d:\d\d(\.\d+)?|( with|")?\s*board-gone=\d+"?|\s+)");
    return std::regex_replace(text, changing, "");
}

/// Without the lines that do not say how the command ended.
std::string Message(const std::string& err) {
    static const std::regex beginnings("Simulated board\n|Reading [^\n]*\n|Measuring [^\n]*\n");
    return std::regex_replace(err, beginnings, "");
}

/// What is continued has to fit to what is there; otherwise the file is refused.
bool IsExpected(const BoardCommand& command, ExitCode code) {
    static constexpr ExitCode codes[] = {ExitCode::Success,        ExitCode::BadDataFile,
                                         ExitCode::NoAnswer,       ExitCode::ConverterDisabled,
                                         ExitCode::CountRefused,   ExitCode::ReadBackMismatch,
                                         ExitCode::NotInPowerDown, ExitCode::Different};
    const bool continues =
        command.words.ends_with("--append") || command.words.ends_with("--resume");
    return (continues && code == ExitCode::FileNotAccessible) ||
           std::ranges::find(codes, code) != std::end(codes);
}

/// From the first access on nothing comes from the board.
bool IsDead(const std::string& fault) {
    return fault == "board-gone=0" || fault == "dout-stuck-low" || fault == "dout-stuck-high";
}

std::vector<std::string> WrongEnd(const BoardCommand& command, const std::string& fault,
                                  const RunResult& good, const RunResult& result) {
    if (!result.code) {
        return {"it makes more than " + std::to_string(result.accesses - 1) + " accesses"};
    }
    std::vector<std::string> wrong;
    const bool success = result.code == ExitCode::Success;
    if (!IsExpected(command, *result.code)) {
        wrong.push_back("the exit code is " + std::to_string(static_cast<int>(*result.code)));
    }
    if (!success && Message(result.err).empty() &&
        (result.code != ExitCode::Different || result.out.empty())) {
        wrong.emplace_back("there is no message");
    }
    if (!command.verifies || !success) {
        return wrong;
    }
    if (IsDead(fault)) {
        wrong.emplace_back("it succeeds without a board");
    } else if (fault.starts_with("board-gone=") && Timeless(result.out) != Timeless(good.out)) {
        wrong.push_back("it succeeds with false values: " + result.out);
    }
    return wrong;
}

class Matrix {
  public:
    Matrix(std::string folder, int part, int parts)
        : folder_(std::move(folder)), part_(part), parts_(parts), files_(MakeFiles(folder_)) {}

    void TryAll() {
        for (const BoardCommand& command : BoardCommands()) {
            const RunResult good = Run(command, "", folder_, anyNumber);
            std::vector<std::string> wrong = CheckFiles(command, good);
            if (good.code != ExitCode::Success) {
                wrong.push_back("the board is good, and the command fails: " + good.err);
            }
            Report(command, "", wrong);
            for (const std::string& fault : FaultsFor(good.accesses)) {
                if (turn_++ % parts_ == part_) {
                    Try(command, fault, good);
                }
            }
        }
        for (const std::string& name : CommandsLeftOut()) {
            Report({.words = name}, "", {"the command is not tried"});
        }
    }

    int Runs() const { return runs_; }
    int Wrong() const { return wrong_; }
    double NearestToLimit() const { return nearest_; }

  private:
    void Try(const BoardCommand& command, const std::string& fault, const RunResult& good) {
        std::cout << command.words << " --fault " << fault << std::endl;
        const std::int64_t max = MaxAccesses(command, good.accesses);
        const RunResult result = Run(command, fault, folder_, max);
        nearest_ =
            std::max(nearest_, static_cast<double>(result.accesses) / static_cast<double>(max));
        ++runs_;
        std::vector<std::string> wrong = WrongEnd(command, fault, good, result);
        const std::vector<std::string> wrongFiles = CheckFiles(command, result);
        wrong.insert(wrong.end(), wrongFiles.begin(), wrongFiles.end());
        if (!wrong.empty()) {
            wrong.push_back("it printed: " + result.err);
        }
        Report(command, fault, wrong);
    }

    std::vector<std::string> CheckFiles(const BoardCommand& command, const RunResult& result) {
        const Files after = FilesIn(folder_);
        const std::vector<std::string> wrong = WrongFiles(folder_, files_, after, command, result);
        PutBack(folder_, files_, after);
        return wrong;
    }

    void Report(const BoardCommand& command, const std::string& fault,
                const std::vector<std::string>& wrong) {
        for (const std::string& what : wrong) {
            std::cerr << command.words << (fault.empty() ? "" : " --fault " + fault) << ": " << what
                      << std::endl;
        }
        wrong_ += wrong.empty() ? 0 : 1;
    }

    std::string folder_;
    int part_;
    int parts_;
    Files files_;
    int turn_ = 0;
    int runs_ = 0;
    int wrong_ = 0;
    double nearest_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "Usage: fault-matrix FOLDER PART PARTS\n";
        return 2;
    }
    Matrix matrix(argv[1], std::stoi(argv[2]), std::stoi(argv[3]));
    matrix.TryAll();
    std::cout << "RUNS " << matrix.Runs() << " WRONG " << matrix.Wrong() << " COMMANDS "
              << BoardCommands().size() << " FAULTS " << FaultsFor(1 << 20).size() << " NEAREST "
              << matrix.NearestToLimit() << std::endl;
    return matrix.Wrong() == 0 ? 0 : 1;
}
