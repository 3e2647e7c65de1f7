// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace CLI {
class App;
}  // namespace CLI

namespace vx3260 {

/// Throws CLI::ExtrasError for a word that the parser, which has parsed, does not know. The message
/// suggests the command or option that the word is closest to.
[[noreturn]] void RefuseUnknownWord(const CLI::App& parser, const std::string& word);

}  // namespace vx3260
