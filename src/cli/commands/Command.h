// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "cli/board/BoardSession.h"
#include "files/CodeText.h"
#include "link/Converter.h"
#include "options/ExitCodes.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vx3260 {

/// One command of the command line. Its constructor adds it to the parser, which then fills in the
/// command's members.
class Command {
  public:
    virtual ~Command() = default;
    Command(const Command&) = delete;
    Command(Command&&) = delete;
    Command& operator=(const Command&) = delete;
    Command& operator=(Command&&) = delete;

    /// Whether the parsed command line names this command.
    bool Chosen() const;

    /// Runs the command. Throws CommandError, FileAccessError, BadDataError or RuntimeError.
    virtual ExitCode Run(const CommandContext& context) = 0;

  protected:
    Command(CLI::App& program, const std::string& name, const std::string& description);

    CLI::App& Parser() { return parser_; }

  private:
    CLI::App& parser_;
};

/// Adds an option that takes one of the words, and calls `use` with it.
CLI::Option* AddWord(CLI::App& parser, const std::string& option,
                     const std::vector<std::string>& words, const std::string& defaultWord,
                     const std::function<void(const std::string&)>& use,
                     const std::string& description);

/// Adds the word that names the converter.
void AddConverter(CLI::App& parser, Converter& converter);

/// Adds an option with a decimal integer; a number beyond 64 bits is clamped.
CLI::Option* AddWholeNumber(CLI::App& parser, const std::string& name, std::int64_t& number,
                            const std::string& description);

inline constexpr std::int64_t DefaultCount = 200;

/// Adds --count N, how many codes to read.
CLI::Option* AddCount(CLI::App& parser, std::int64_t& count);

/// How a command prints its results.
enum class ReportFormat { Text, Json, Csv };

/// Adds --format with the choice between text and other formats.
CLI::Option* AddFormat(CLI::App& parser, ReportFormat& format,
                       std::initializer_list<ReportFormat> others);

/// A value of an option and its name in the command line.
template <typename Value>
struct NamedChoice {
    const char* name;
    Value value;
};

/// Adds an option that chooses by a name; its default is the value that `chosen` has, one of them.
template <typename Value, std::size_t Count>
CLI::Option* AddChoice(CLI::App& parser, const std::string& option, Value& chosen,
                       const NamedChoice<Value> (&choices)[Count], const std::string& description) {
    std::vector<std::string> names;
    std::string present;
    for (const NamedChoice<Value>& choice : choices) {
        names.emplace_back(choice.name);
        present = choice.value == chosen ? names.back() : present;
    }
    const auto choose = [&chosen, &choices](const std::string& name) {
        for (const NamedChoice<Value>& choice : choices) {
            chosen = choice.name == name ? choice.value : chosen;
        }
    };
    return AddWord(parser, option, names, present, choose, description);
}

/// Adds --reference, the reference voltage; its default is the value that `volts` has.
CLI::Option* AddReference(CLI::App& parser, float& volts);

/// Adds --rate, how many readings there were in a second.
CLI::Option* AddRate(CLI::App& parser, std::optional<double>& rate);

/// Adds --hex, which makes the notation of data files hexadecimal.
CLI::Option* AddHex(CLI::App& parser, Notation& notation, const std::string& description);

}  // namespace vx3260
