// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/Reading.h"

#include "link/Serial.h"
#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

bool StopRequested(const ReadingHooks& hooks) {
    return hooks.stopRequested && hooks.stopRequested();
}

void Run(const std::function<void()>& hook) {
    if (hook) {
        hook();
    }
}

}  // namespace

void CheckBlockSize(std::int16_t size) {
    if (size < 1) {
        throw SubscriptError();
    }
}

ReadingEnd ReadBlock(ConverterReader& reader, CodeBlock block, std::int16_t size,
                     const ReadingHooks& hooks) {
    CheckBlockSize(size);
    block.count = 0;
    block.codes.assign(static_cast<std::size_t>(size), 0.0);
    for (double& code : block.codes) {
        ++block.count;
        Run(hooks.beforeEach);
        const std::int32_t read = reader.ReadCode();
        code = read;
        if (read == ReadTimeout) {
            return ReadingEnd::TimedOut;
        }
        Run(hooks.afterEach);
        // Asked after the last code too: a key pressed during it is an interruption.
        if (StopRequested(hooks)) {
            return ReadingEnd::Stopped;
        }
    }
    return ReadingEnd::Complete;
}

ReadingEnd StreamCodes(const std::function<std::int32_t()>& read,
                       const std::function<void(std::int32_t)>& show, const ReadingHooks& hooks) {
    while (!StopRequested(hooks)) {
        Run(hooks.beforeEach);
        const std::int32_t code = read();
        if (code == ReadTimeout) {
            return ReadingEnd::TimedOut;
        }
        Run(hooks.afterEach);
        show(code);
    }
    return ReadingEnd::Stopped;
}

}  // namespace vx3260
