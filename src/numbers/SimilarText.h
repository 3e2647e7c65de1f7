// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vx3260 {

/// The name that a mistyped word is closest to; empty where none is close. Two thirds of the word
/// have to be right; the beginning of a name counts as one mistake.
std::string ClosestOf(std::string_view word, const std::vector<std::string>& names);

/// Ends a message about such a word: "; did you mean read?", or nothing where no name is close.
std::string Suggestion(std::string_view word, const std::vector<std::string>& names);

}  // namespace vx3260
