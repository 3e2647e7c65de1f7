// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/UnknownWord.h"

#include <CLI/CLI.hpp>
#include <vector>

#include "numbers/SimilarText.h"

namespace vx3260 {
namespace {

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
