// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/BlockFile.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>
#include <utility>

#include "cli/board/BlockReading.h"
#include "cli/board/StopSignal.h"
#include "cli/commands/Command.h"
#include "files/CodeFile.h"
#include "files/ConditionsFile.h"
#include "link/CodeBlock.h"
#include "link/Serial.h"
#include "options/Validators.h"

namespace vx3260 {
std::string BlockFile::Name() const {
    return IsRegular() ? path : "standard input";
}

CLI::Option* AddFile(CLI::App& parser, BlockFile& file, const std::string& description) {
    return parser.add_option("FILE", file.path, description)->check(FileName());
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

std::optional<BlockConditions> LoadConditionsOf(const BlockFile& file, Converter converter,
                                                const ParsedCodes& block, std::ostream& err) {
    if (!file.IsRegular()) {
        return std::nullopt;
    }
    LoadedConditions beside = LoadConditions(file.path, converter, block.codes);
    if (!beside.warning.empty()) {
        PrintWarnings({beside.warning}, err);
    }
    return std::move(beside.conditions);
}

std::vector<BlockWarning> CheckWarnings(const BlockFile& file, const ParsedCodes& block,
                                        Converter converter, std::ostream& err,
                                        const WarningContext& context) {
    std::vector<BlockWarning> warnings = WarningsAbout(ToDoubles(block.codes), converter, context);
    PrintWarnings(TextsOf(warnings), err);
    bool refused = std::any_of(warnings.begin(), warnings.end(), [&block](const auto& warning) {
        return Refuses(warning, block.codes.size());
    });
    if (block.look && *block.look != file.notation) {
        PrintWarnings({OtherNotationText(*block.look)}, err);
        refused = true;
    }
    if (refused && !file.force) {
        throw BadDataError(file.Name() +
                           ": the codes are suspicious and were not analysed; --force analyses "
                           "them all the same");
    }
    return warnings;
}

}  // namespace vx3260
