// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/BlockFile.h"

#include <algorithm>
#include <utility>

#include "files/CodeFile.h"
#include "link/Serial.h"

namespace vx3260 {

std::vector<std::int32_t> LoadBlock(const std::string& path, Notation notation, std::ostream& err) {
    auto [codes, look, warning] = LoadCodes(path, notation);
    const auto timeout = std::find(codes.begin(), codes.end(), ReadTimeout);
    if (timeout != codes.end()) {
        throw BadDataError(path + ": line " + std::to_string(timeout - codes.begin() + 1) +
                           ": the time-out value " + std::to_string(ReadTimeout) +
                           " of a reading that failed; it cannot be analysed");
    }
    if (!warning.empty()) {
        err << "Warning: " << warning << std::endl;
    }
    return std::move(codes);
}

void OpenForStatus(const CommandContext& context) {
    if (context.board.StatusRequested()) {
        context.board.Open();
    }
}

}  // namespace vx3260
