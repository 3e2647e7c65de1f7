// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// What shells offer where a command line is not complete yet, by what the parser itself knows.
namespace vx3260 {

/// One continuation of a word.
struct Candidate {
    std::string text;
    std::string description{};
};

/// What a value can be. `begun` is what of it has been typed, of a list its last entry; `first` is
/// the first word of the command that is not an option, empty where there is none.
using CandidateSource =
    std::function<std::vector<Candidate>(const std::string& begun, const std::string& first)>;

/// For options and positionals whose values their other validators do not list: offers these. It
/// accepts every value. What does not continue the begun text is left out later.
CLI::Validator Offering(const CandidateSource& candidates);

/// Where the first of the arguments is --complete: the candidates for the last one, a line each,
/// perhaps with a tab and a description; ":files" or ":folders" where such names belong. The
/// arguments between them are the words before it.
std::optional<std::string> RequestedCompletion(CLI::App& program,
                                               std::span<const std::string> arguments);

}  // namespace vx3260
