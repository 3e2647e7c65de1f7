// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vx3260 {

/// A command line in a script.
struct ScriptLine {
    std::size_t number;  ///< from 1
    std::string text;
};

/// The command lines in a text: all but blank lines and those that begin with #. CR LF line ends
/// and a UTF-8 byte-order mark are accepted. Throws BadDataError, with `source` as the name of the
/// text, for binary data.
std::vector<ScriptLine> ScriptLines(std::string_view text, std::string_view source);

}  // namespace vx3260
