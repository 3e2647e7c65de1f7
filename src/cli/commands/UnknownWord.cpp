// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/UnknownWord.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

namespace vx3260 {
namespace {

/// How many letters have to be inserted, removed, replaced or exchanged with their neighbour.
std::size_t Distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> beforeLast(to.size() + 1);
    std::vector<std::size_t> last(to.size() + 1);
    std::iota(last.begin(), last.end(), 0);
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::vector<std::size_t> row(to.size() + 1, i);
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1]) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
        beforeLast = std::exchange(last, std::move(row));
    }
    return last.back();
}

/// Ends a message: "; did you mean read?", or nothing where no name is close. Two thirds of the
/// word have to be right; the beginning of a name counts as one mistake.
std::string Suggestion(const std::string& word, const std::vector<std::string>& names) {
    std::size_t distance = std::max<std::size_t>(1, word.size() / 3);
    std::string closest;
    for (const std::string& name : names) {
        const std::size_t here = name.starts_with(word) ? 1 : Distance(word, name);
        if (here < distance || (here == distance && closest.empty())) {
            distance = here;
            closest = name;
        }
    }
    return closest.empty() ? "" : "; did you mean " + closest + "?";
}

std::vector<std::string> CommandNames(const CLI::App& parser) {
    std::vector<std::string> names;
    for (const CLI::App* command :
         parser.get_subcommands([](const CLI::App* c) { return !c->get_group().empty(); })) {
        names.push_back(command->get_name());
    }
    return names;
}

/// The long options of the parser and of the chosen command.
std::vector<std::string> OptionNames(const CLI::App& parser) {
    std::vector<const CLI::App*> parsers{&parser};
    for (const CLI::App* chosen : parser.get_subcommands()) {
        parsers.push_back(chosen);
    }
    std::vector<std::string> names;
    for (const CLI::App* p : parsers) {
        for (const CLI::Option* option :
             p->get_options([](const CLI::Option* o) { return !o->get_group().empty(); })) {
            for (const std::string& name : option->get_lnames()) {
                names.push_back("--" + name);
            }
        }
    }
    return names;
}

[[noreturn]] void RefuseWord(const std::string& message) {
    throw CLI::ExtrasError(message, static_cast<int>(CLI::ExitCodes::ExtrasError));
}

}  // namespace

void RefuseUnknownWord(const CLI::App& parser, const std::string& word) {
    if (word.starts_with('-') && word != "-") {
        const std::string option = word.substr(0, word.find('='));
        RefuseWord("'" + option + "' is not an option here" +
                   Suggestion(option, OptionNames(parser)));
    }
    if (parser.get_subcommands().empty()) {
        RefuseWord("'" + word + "' is not a command" + Suggestion(word, CommandNames(parser)));
    }
    throw CLI::ExtrasError({word});
}

}  // namespace vx3260
