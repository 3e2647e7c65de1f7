// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

#include "acquisition/ConverterReader.h"
#include "link/BlockConditions.h"
#include "link/CodeBlock.h"

namespace vx3260 {

/// What the caller does between the reads; each may be left empty.
struct ReadingHooks {
    std::function<void()> beforeEach{};
    std::function<void()> afterEach{};  ///< not after a time-out
    std::function<bool()> stopRequested{};
};

/// Throws SubscriptError for a block size below 1.
void CheckBlockSize(std::int16_t size);

/// Reads `size` codes into the block, whose old contents are lost. `block.count` is the number of
/// the code being read, so after the end that of the codes in the block; after a time-out the last
/// of them is ReadTimeout. Throws as CheckBlockSize does, the old block untouched.
ReadingEnd ReadBlock(ConverterReader& reader, CodeBlock block, std::int16_t size,
                     const ReadingHooks& hooks);

/// Passes codes from `read` to `show` until `read` returns ReadTimeout or a stop is requested.
ReadingEnd StreamCodes(const std::function<std::int32_t()>& read,
                       const std::function<void(std::int32_t)>& show, const ReadingHooks& hooks);

}  // namespace vx3260
