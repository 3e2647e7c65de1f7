// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/CheckCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "app/PortWords.h"
#include "link/BoardCheck.h"
#include "link/RegisterLookup.h"

namespace vx3260 {
namespace {

struct VerdictEntry {
    BoardVerdict verdict;
    std::string_view seen;
    std::string_view advice;  ///< in the words of InPortWords; of Answers, if not put back
};

constexpr VerdictEntry verdictEntries[] = {
    {BoardVerdict::Answers,
     "the board answers: what was written to a register reads back (data-ready was not "
     "looked at)",
     "Set the register again, or reset the board."},
    {BoardVerdict::NoAnswer, "no answer: all bits read 1 and data-ready does not come",
     "Look at the board's power, at both ends of the cable, {listed port}, and at {RESET}, "
     "which must be high."},
    {BoardVerdict::StuckHigh, "stuck high: all bits read 1, though data-ready comes",
     "Look at {DOUT}, {SCLK and DIN} for a break or a short."},
    {BoardVerdict::StuckLow, "stuck low: all bits read 0",
     "Look at {DOUT} for a short to ground, at the board's power, and {right port}."},
    {BoardVerdict::AnswersWrongly, "answers wrongly",
     "Look for a loose contact on {SCLK, DIN} and {DOUT}, at the length of the cable, and {other "
     "user}."},
};

const VerdictEntry& EntryOf(BoardVerdict verdict) {
    return *std::find_if(std::begin(verdictEntries), std::end(verdictEntries),
                         [verdict](const VerdictEntry& entry) { return entry.verdict == verdict; });
}

std::string Hex(std::int32_t value) {
    return RegisterHex(value, RegisterMap::AuxControl);
}

std::string VerdictText(const BoardCheck& check) {
    std::string text(EntryOf(check.verdict).seen);
    if (check.verdict == BoardVerdict::AnswersWrongly) {
        text += ": the aux ADC control register was written with " + Hex(check.written) +
                " and reads " + Hex(check.readBack);
    }
    if (!check.putBack) {
        text += "; it could not be put back to what it held";
    }
    return text;
}

}  // namespace

CheckCommand::CheckCommand(CLI::App& program)
    : Command(program, "check",
              "Tell whether a board answers; one register is written, read back and put back") {}

ExitCode CheckCommand::Run(const CommandContext& context) {
    Services& services = context.board.Services();
    const BoardCheck check = CheckBoard(services.port, services.state.PortAddress);
    const bool answers = check.verdict == BoardVerdict::Answers;
    if (!answers || !check.putBack) {
        const bool wrong = answers || check.verdict == BoardVerdict::AnswersWrongly;
        throw CommandError(
            wrong ? ExitCode::ReadBackMismatch : ExitCode::NoAnswer,
            VerdictText(check) + ". " + InPortWords(EntryOf(check.verdict).advice, services.port));
    }
    context.streams.out << VerdictText(check) << '\n';
    return ExitCode::Success;
}

}  // namespace vx3260
