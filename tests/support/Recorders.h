// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/MessageBoxes.h"
#include "app/OperatingSystem.h"

namespace vx3260::test {

/// Notes the message boxes asked for and gives prepared answers; OK when none is left.
class RecordedMessages final : public MessageBoxes {
  public:
    MessageAnswer Show(const Message& message) override {
        shown.push_back(message);
        if (atBox) {
            atBox();
        }
        if (answers.empty()) {
            return MessageAnswer::Ok;
        }
        const MessageAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    /// The boxes since the last call, one a line, such as "Exclamation: Overflow".
    std::string Take() {
        static constexpr const char* icons[] = {"Plain", "Information", "Exclamation", "Question",
                                                "Critical"};
        std::string text;
        for (const Message& message : std::exchange(shown, {})) {
            text += text.empty() ? "" : "\n";
            text += icons[static_cast<std::size_t>(message.icon)];
            text += message.buttons == MessageButtons::YesNo ? " yes or no: " : ": ";
            text += message.text;
        }
        return text;
    }

    std::vector<Message> shown;
    std::function<void()> atBox;  ///< runs while a box is up
    std::deque<MessageAnswer> answers;
};

/// A system with a version and a command line of the test's choice. It notes the end of the
/// process instead of ending it.
class RecordedSystem final : public OperatingSystem {
  public:
    SystemVersion QueryVersion() override { return version; }
    std::string CommandLine() override { return commandLine; }
    std::optional<std::string> GetKeyValue(const std::string& key,
                                           const std::string& name) override {
        const auto found = registry.find(key + ":" + name);
        return found == registry.end() ? std::nullopt : std::optional(found->second);
    }
    bool FileExists(const std::string& path) override { return path == existingFile; }
    std::vector<std::string> DesktopSystemInformation() override { return desktopProgram; }
    bool StartProgram(const std::vector<std::string>& command) override {
        started.push_back(command.at(0));
        return startsPrograms;
    }
    void EndProcess(int exitCode) override { ended.push_back(exitCode); }

    SystemVersion version;
    std::string commandLine;
    std::map<std::string, std::string> registry;  ///< "key:name" and the value
    std::string existingFile;
    std::vector<std::string> desktopProgram;
    bool startsPrograms = true;
    std::vector<std::string> started;
    std::vector<int> ended;
};

}  // namespace vx3260::test
