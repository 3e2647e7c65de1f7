// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "link/ParallelPort.h"

namespace vx3260::test {

/// A port of bare wires: it notes every access and answers reads from a script, then from a
/// standing value.
class RecordingPort : public ParallelPort {
  public:
    std::int32_t GetParallelPortCount() override { return count; }
    std::int32_t ClaimParallelPort(std::int32_t portNumber, std::int32_t flag) override {
        claims.emplace_back(portNumber, flag);
        return claimable ? 1 : 0;
    }
    std::int32_t GetParallelPortInfo(std::int32_t portNumber, ParallelPortInfo& info) override {
        infoCalls.emplace_back(portNumber, info.size);
        info.address = address;
        return address == 0 ? 0 : 1;
    }
    void OutByte(std::int16_t to, std::int16_t value) override { written.emplace_back(to, value); }
    std::int16_t InByte(std::int16_t from) override {
        readFrom.push_back(from);
        if (replies.empty()) {
            return standingReply;
        }
        const std::int16_t reply = replies.front();
        replies.pop_front();
        return reply;
    }

    /// The values written to one address, as upper-case hexadecimal pairs.
    std::string BytesTo(std::int16_t to) const {
        std::string text;
        for (const auto& [at, value] : written) {
            if (at == to) {
                constexpr std::string_view digits = "0123456789ABCDEF";
                text += text.empty() ? "" : " ";
                text += digits[static_cast<std::size_t>(value >> 4 & 15)];
                text += digits[static_cast<std::size_t>(value & 15)];
            }
        }
        return text;
    }

    std::int32_t count = 1;
    bool claimable = true;
    std::int32_t address = 888;  ///< 0: no port information
    std::deque<std::int16_t> replies;
    std::int16_t standingReply = 0xFF;

    std::vector<std::pair<std::int32_t, std::int32_t>> claims;     ///< port number and flag
    std::vector<std::pair<std::int32_t, std::int32_t>> infoCalls;  ///< port number and size
    std::vector<std::pair<std::int16_t, std::int16_t>> written;    ///< address and value
    std::vector<std::int16_t> readFrom;
};

}  // namespace vx3260::test
