// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "analysis/BlockWarnings.h"
#include "cli/board/BoardSession.h"
#include "files/CodeText.h"
#include "link/BlockConditions.h"
#include "link/Converter.h"
#include "options/ExitCodes.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vx3260 {

/// The data file that a command is to analyse.
struct BlockFile {
    std::string path{};  ///< "-" for standard input
    Notation notation = Notation::Decimal;
    bool force = false;  ///< suspicious codes are analysed too

    /// Whether it may have a conditions file beside it.
    bool IsRegular() const { return path != "-"; }

    /// As messages name it.
    std::string Name() const;
};

/// Adds FILE, which names the file.
CLI::Option* AddFile(CLI::App& parser, BlockFile& file, const std::string& description);

/// Adds --hex and --force, which need FILE.
void AddFileOptions(CLI::App& parser, BlockFile& file, CLI::Option* fileOption);

/// Runs a command that works on the file and needs no board, which is opened only where its status
/// is requested. Codes that come through a pipe may be those of a reading: a Ctrl+C meant for that
/// does not end this command too, but changes its exit code.
ExitCode RunOnFile(const CommandContext& context, const BlockFile& file,
                   const std::function<void()>& work);

/// The codes of the file. Throws as LoadCodes does, and BadDataError for a code that is the value
/// of a time-out. A warning about the file is printed to `err`.
ParsedCodes LoadBlock(const BlockFile& file, std::ostream& err);

/// How the block of the file was read, by the conditions file beside it; empty where unknown. Why a
/// conditions file cannot be used is printed to `err`.
std::optional<BlockConditions> LoadConditionsOf(const BlockFile& file, Converter converter,
                                                const ParsedCodes& block, std::ostream& err);

/// Prints a warning to `err` for each of the WarningsAbout the codes, which it returns, and where
/// they look like those of the other notation. Throws BadDataError if that or one of the warnings
/// refuses the block, unless that is forced.
std::vector<BlockWarning> CheckWarnings(const BlockFile& file, const ParsedCodes& block,
                                        Converter converter, std::ostream& err,
                                        const WarningContext& context = {});

}  // namespace vx3260
