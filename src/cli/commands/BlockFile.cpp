// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/BlockFile.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>
#include <vector>

#include "analysis/SuspiciousCodes.h"
#include "cli/board/BlockReading.h"
#include "cli/board/StopSignal.h"
#include "cli/commands/Command.h"
#include "files/CodeFile.h"
#include "link/Serial.h"
#include "options/Validators.h"

namespace vx3260 {
std::string BlockFile::Name() const {
    return IsRegular() ? path : "standard input";
}

CLI::Option* AddFile(CLI::App& parser, BlockFile& file, const std::string& description) {
    return parser.add_option("FILE", file.path, description)->check(NotEmpty());
}

void AddFileOptions(CLI::App& parser, BlockFile& file, CLI::Option* fileOption) {
    AddHex(parser, file.notation, "FILE is in hexadecimal")->needs(fileOption);
    parser.add_flag("--force", file.force, "Analyse the codes of FILE even if they are suspicious")
        ->needs(fileOption);
}

ExitCode RunOnFile(const CommandContext& context, const BlockFile& file,
                   const std::function<void()>& work) {
    if (context.board.StatusRequested()) {
        context.board.Open();
    }
    std::optional<StopSignal> stop;
    if (!file.IsRegular() && !context.streams.inIsTerminal) {
        stop.emplace();
    }
    work();
    return ExitCodeOf(ReadingEnd::Complete, stop && stop->Requested());
}

ParsedCodes LoadBlock(const BlockFile& file, std::ostream& err) {
    ParsedCodes block = file.IsRegular() ? LoadCodes(file.path, file.notation)
                                         : LoadCodesOfStandardInput(file.notation);
    const auto timeout = std::find(block.codes.begin(), block.codes.end(), ReadTimeout);
    if (timeout != block.codes.end()) {
        throw BadDataError(file.Name() + ": line " +
                           std::to_string(timeout - block.codes.begin() + 1) +
                           ": the time-out value " + std::to_string(ReadTimeout) +
                           " of a reading that failed; it cannot be analysed");
    }
    if (!block.warning.empty()) {
        PrintWarnings({block.warning}, err);
    }
    return block;
}

void CheckSuspicions(const BlockFile& file, const ParsedCodes& block, Converter converter,
                     std::ostream& err) {
    std::vector<std::string> suspicions = SuspicionsAbout(block.codes, converter);
    if (block.look && *block.look != file.notation) {
        suspicions.push_back(OtherNotationText(*block.look));
    }
    PrintWarnings(suspicions, err);
    if (!suspicions.empty() && !file.force) {
        throw BadDataError(file.Name() +
                           ": the codes are suspicious and were not analysed; --force analyses "
                           "them all the same");
    }
}

}  // namespace vx3260
