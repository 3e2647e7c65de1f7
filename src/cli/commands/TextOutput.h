// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "cli/board/BoardSession.h"
#include "files/CodeFile.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vx3260 {

/// Where a command writes a text.
struct OutputChoice {
    std::string file{};  ///< empty or - for standard output
    bool force = false;  ///< an existing file is replaced
};

/// Adds --force, which needs the option or argument that names the file.
void AddForce(CLI::App& parser, OutputChoice& output, CLI::Option* file);

/// Throws FileAccessError: the file exists, and --force replaces it.
[[noreturn]] void RefuseToReplaceFile(const std::string& path);

/// The consequence, in a message, of a board that does not answer.
inline constexpr std::string_view NothingSaved = "Nothing was saved. ";

/// A text that goes to a file or to standard output. Tried out before the board is asked.
class TextOutput {
  public:
    /// Throws FileAccessError for a file that cannot be written, or exists and is not to be
    /// replaced.
    TextOutput(const OutputChoice& choice, const CommandContext& context);

    /// Writes the text, once, and reports the file's name. Throws FileAccessError.
    void Write(std::string_view text);

  private:
    CodeWriter writer_;
    std::ostream& err_;
};

}  // namespace vx3260
