// SPDX-License-Identifier: GPL-3.0-or-later
#include "options/Completion.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "app/StartUp.h"
#include "options/Validators.h"

namespace vx3260 {
namespace {

constexpr std::string_view completionSwitch = "--complete";

/// The name of those that Offering makes. Validators are all that the parser keeps with an option
/// for others; being inactive, these check nothing.
constexpr const char* offerValidator = "offer";

constexpr char fieldSeparator = '\n';

std::string Line(std::string text, const std::string& description) {
    if (!description.empty()) {
        text.append("\t").append(description);
    }
    return text;
}

bool HasValidator(CLI::Option& option, const char* name) {
    try {
        option.get_validator(name);
        return true;
    } catch (const CLI::OptionNotFound&) {
        return false;
    }
}

/// The words between the braces of the help: TEXT:{text,json}.
std::vector<std::string> ListedChoices(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    const std::size_t open = type.find('{');
    const std::size_t close = type.find('}', open);
    if (open == std::string::npos || close == std::string::npos) {
        return {};
    }
    return CLI::detail::split(type.substr(open + 1, close - open - 1), ',');
}

std::vector<std::string> OfferedLines(CLI::Option& option, const std::string& begun,
                                      const std::string& first) {
    CLI::Validator offer = *option.get_validator(offerValidator);
    return CLI::detail::split(offer.active()(first + fieldSeparator + begun), '\n');
}

/// The lines for an option's value of which `begun` has been typed.
std::vector<std::string> ValueLines(CLI::Option& option, const std::string& begun,
                                    const std::string& first) {
    for (const char* const kind : {FilesValidator, FoldersValidator}) {
        if (HasValidator(option, kind)) {
            return {":" + std::string(kind)};
        }
    }
    const std::size_t lastDelimiter =
        option.get_delimiter() == '\0' ? std::string::npos : begun.rfind(option.get_delimiter());
    const std::string before =
        lastDelimiter == std::string::npos ? "" : begun.substr(0, lastDelimiter + 1);
    std::vector<std::string> lines = HasValidator(option, offerValidator)
                                         ? OfferedLines(option, begun.substr(before.size()), first)
                                         : ListedChoices(option);
    std::erase(lines, "");
    for (std::string& line : lines) {
        line.insert(0, before);
    }
    return lines;
}

/// The words before the one that is completed, as the parser would understand them.
class WordsBefore {
  public:
    WordsBefore(CLI::App& program, std::span<const std::string> words) : apps_{&program} {
        for (const std::string& word : words) {
            if (!IsStatusSwitch(word)) {
                Add(word);
            }
        }
    }

    std::vector<std::string> LinesFor(const std::string& begun) {
        if (awaitsValue_ != nullptr) {
            return ValueLines(*awaitsValue_, begun, First());
        }
        const std::size_t equals = begun.find('=');
        if (!optionsEnded_ && begun.starts_with("--") && equals != std::string::npos) {
            return LinesAfter(begun.substr(0, equals + 1), begun);
        }
        if (!optionsEnded_ && begun.starts_with('-')) {
            return OptionLines();
        }
        std::vector<std::string> lines = PositionalLines(begun);
        return lines.empty() && !optionsEnded_ ? OptionLines() : lines;
    }

  private:
    void Add(const std::string& word) {
        if (awaitsValue_ != nullptr) {
            awaitsValue_ = nullptr;
        } else if (!optionsEnded_ && word == "--") {
            optionsEnded_ = true;
        } else if (!optionsEnded_ && word.starts_with('-') && word != "-") {
            AddOption(word);
        } else if (CLI::App* const command = CommandNamed(word)) {
            apps_.insert(apps_.begin(), command);
        } else {
            positionals_.push_back(word);
        }
    }

    void AddOption(const std::string& word) {
        const std::size_t equals = word.find('=');
        CLI::Option* const option = OptionNamed(word.substr(0, equals));
        if (option == nullptr) {
            return;
        }
        used_.push_back(option);
        if (equals == std::string::npos && option->get_items_expected_max() > 0) {
            awaitsValue_ = option;
        }
    }

    /// Null where there is none, or a command was named before.
    CLI::App* CommandNamed(const std::string& word) {
        const auto commands = Commands();
        const auto named = std::ranges::find_if(
            commands, [&word](const CLI::App* command) { return command->get_name() == word; });
        return named == commands.end() ? nullptr : *named;
    }

    std::vector<CLI::App*> Commands() {
        return apps_.front()->get_subcommands(
            [](const CLI::App* command) { return !command->get_group().empty(); });
    }

    /// Options of the program may follow the command.
    CLI::Option* OptionNamed(const std::string& name) {
        for (CLI::App* const app : apps_) {
            if (CLI::Option* const option = app->get_option_no_throw(name)) {
                return option;
            }
        }
        return nullptr;
    }

    std::vector<std::string> LinesAfter(const std::string& nameAndEquals,
                                        const std::string& begun) {
        CLI::Option* const option = OptionNamed(nameAndEquals.substr(0, nameAndEquals.size() - 1));
        if (option == nullptr) {
            return {};
        }
        std::vector<std::string> lines =
            ValueLines(*option, begun.substr(nameAndEquals.size()), First());
        for (std::string& line : lines) {
            line.insert(0, line.starts_with(':') ? "" : nameAndEquals);
        }
        return lines;
    }

    /// Options that could not be given any more are left out.
    bool CanFollow(const CLI::Option& option) const {
        const bool again = option.get_items_expected_max() > 1;
        return std::ranges::none_of(used_, [&](CLI::Option* used) {
            return (used == &option && !again) || option.get_excludes().contains(used);
        });
    }

    std::vector<std::string> OptionLines() {
        std::vector<std::string> lines;
        for (CLI::App* const app : apps_) {
            for (const CLI::Option* option : app->get_options()) {
                if (option->get_group().empty() || !CanFollow(*option)) {
                    continue;
                }
                for (const auto& [dashes, names] : {std::pair("-", option->get_snames()),
                                                    std::pair("--", option->get_lnames())}) {
                    for (const std::string& name : names) {
                        lines.push_back(Line(dashes + name, option->get_description()));
                    }
                }
            }
        }
        return lines;
    }

    /// The command, one of its words that are not options, or a file where a program without
    /// commands takes such words.
    std::vector<std::string> PositionalLines(const std::string& begun) {
        std::vector<std::string> lines;
        for (const CLI::App* command : Commands()) {
            lines.push_back(Line(command->get_name(), command->get_description()));
        }
        if (!lines.empty()) {
            return lines;
        }
        if (apps_.size() == 1) {
            return {":" + std::string(FilesValidator)};
        }
        const std::vector<CLI::Option*> places = apps_.front()->get_options(
            [](const CLI::Option* option) { return option->get_positional(); });
        if (positionals_.size() < places.size()) {
            return ValueLines(*places[positionals_.size()], begun, First());
        }
        const bool goesOn = !places.empty() && places.back()->get_items_expected_max() > 1;
        return goesOn ? ValueLines(*places.back(), begun, First()) : std::vector<std::string>{};
    }

    std::string First() const { return positionals_.empty() ? "" : positionals_.front(); }

    std::vector<CLI::App*> apps_;  ///< the command, where there is one, and the program
    std::vector<std::string> positionals_;
    std::vector<CLI::Option*> used_;
    CLI::Option* awaitsValue_ = nullptr;
    bool optionsEnded_ = false;
};

}  // namespace

CLI::Validator Offering(const CandidateSource& candidates) {
    const auto print = [candidates](const std::string& words) {
        const std::size_t separator = words.find(fieldSeparator);
        std::string lines;
        for (const Candidate& candidate :
             candidates(words.substr(separator + 1), words.substr(0, separator))) {
            lines += Line(candidate.text, candidate.description) + "\n";
        }
        return lines;
    };
    return CLI::Validator(print, "", offerValidator).active(false);
}

std::optional<std::string> RequestedCompletion(CLI::App& program,
                                               std::span<const std::string> arguments) {
    if (arguments.empty() || arguments.front() != completionSwitch) {
        return std::nullopt;
    }
    const std::span<const std::string> words = arguments.subspan(1);
    const std::string begun = words.empty() ? "" : words.back();
    std::string text;
    std::set<std::string> printed;
    for (const std::string& line :
         WordsBefore(program, words.first(words.empty() ? 0 : words.size() - 1)).LinesFor(begun)) {
        const bool fits = line.starts_with(':') || line.starts_with(begun);
        // Of a command and of the program there is the same --help.
        if (fits && printed.insert(line).second) {
            text += line + "\n";
        }
    }
    return text;
}

}  // namespace vx3260
