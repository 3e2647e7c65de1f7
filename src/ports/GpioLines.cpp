// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/GpioLines.h"

#include <fcntl.h>
#include <linux/gpio.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <thread>

#include "ports/Ioctl.h"

namespace vx3260 {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::string_view consumer = "vx3260";

/// A wait for an edge looks at the level that often all the same: chips behind a bus report edges
/// late, and some not at all.
constexpr milliseconds maxSleep(20);

/// The pause between two looks where the chip reports no edges.
constexpr std::chrono::microseconds pauseWithoutEdges(200);

/// Levels of inputs that cannot be read.
constexpr LineLevels undriven = LevelBit(LineRole::Dout) | LevelBit(LineRole::Rdy);

static_assert(IndexOf(LineRole::Held) + 1 == LineRoles.size(), "the line that may be missing");

constexpr std::uint64_t plainInput = GPIO_V2_LINE_FLAG_INPUT;
constexpr std::uint64_t pulledUp = plainInput | GPIO_V2_LINE_FLAG_BIAS_PULL_UP;
constexpr std::uint64_t edges = GPIO_V2_LINE_FLAG_EDGE_FALLING;

bool IsOutput(LineRole role) {
    return LineRoles.at(IndexOf(role)).output;
}

gpio_v2_line_config_attribute FlagsFor(std::uint64_t flags, std::uint64_t mask) {
    gpio_v2_line_config_attribute attribute{};
    attribute.attr.id = GPIO_V2_LINE_ATTR_ID_FLAGS;
    attribute.attr.flags = flags;
    attribute.mask = mask;
    return attribute;
}

gpio_v2_line_config_attribute ValuesFor(std::uint64_t values, std::uint64_t mask) {
    gpio_v2_line_config_attribute attribute{};
    attribute.attr.id = GPIO_V2_LINE_ATTR_ID_OUTPUT_VALUES;
    attribute.attr.values = values;
    attribute.mask = mask;
    return attribute;
}

}  // namespace

GpioLines::~GpioLines() {
    if (device_ != -1) {
        close(device_);
    }
}

std::string GpioLines::ChipName() const {
    const std::string path = place_ ? place_->chip.path : choice_.device;
    return path.empty() ? "GPIO" : std::filesystem::path(path).filename().string();
}

bool GpioLines::Claim(LineLevels outputs) {
    place_ = FindGpioLines(choice_.device, choice_.lines, failure_);
    if (!place_) {
        return false;
    }
    requested_.clear();
    for (const LineRoleTraits& role : LineRoles) {
        if (place_->offsets.at(IndexOf(role.role))) {
            requested_.push_back(role.role);
        }
    }
    const int chip = OpenGpioChip(place_->chip.path, O_RDWR);
    if (chip == -1) {
        failure_ = GpioOpenFailureDetail(place_->chip.path, errno);
        return false;
    }
    // Not every chip has pull-ups or reports edges.
    int error = 0;
    for (const std::uint64_t flags : {pulledUp | edges, plainInput | edges, pulledUp, plainInput}) {
        reportsEdges_ = (flags & edges) != 0;
        if (Request(chip, outputs, flags)) {
            failure_.clear();
            close(chip);
            return true;
        }
        error = errno;
        if (error == EBUSY) {
            break;
        }
    }
    failure_ = ClaimFailureDetail(chip, error);
    close(chip);
    return false;
}

/// One request for all lines, in the order of their roles: the last alone may be missing, so a
/// line's bit in the request is its LevelBit. Edges are reported of RDY only.
bool GpioLines::Request(int chip, LineLevels outputs, std::uint64_t inputFlags) {
    gpio_v2_line_request request{};
    LineLevels allOutputs = 0;
    for (const LineRole role : requested_) {
        request.offsets[request.num_lines++] = *place_->offsets.at(IndexOf(role));
        allOutputs |= IsOutput(role) ? LevelBit(role) : 0;
    }
    std::ranges::copy(consumer, std::begin(request.consumer));
    request.config.flags = GPIO_V2_LINE_FLAG_OUTPUT;
    request.config.num_attrs = 3;
    request.config.attrs[0] = ValuesFor(outputs, allOutputs);
    request.config.attrs[1] = FlagsFor(inputFlags & pulledUp, LevelBit(LineRole::Dout));
    request.config.attrs[2] = FlagsFor(inputFlags, LevelBit(LineRole::Rdy));
    if (Ioctl(chip, GPIO_V2_GET_LINE_IOCTL, &request) == -1) {
        return false;
    }
    device_ = request.fd;
    // Events are read without waiting for one.
    fcntl(device_, F_SETFL, O_NONBLOCK);
    return true;
}

/// The error of a request names neither the line nor who holds it.
std::string GpioLines::ClaimFailureDetail(int chip, int error) const {
    std::string held;
    for (const LineRole role : requested_) {
        gpio_v2_line_info info{};
        info.offset = *place_->offsets.at(IndexOf(role));
        if (Ioctl(chip, GPIO_V2_GET_LINEINFO_IOCTL, &info) == 0 &&
            (info.flags & GPIO_V2_LINE_FLAG_USED) != 0) {
            const std::string holder = KernelText(info.consumer);
            held += (held.empty() ? "" : "; ") + choice_.lines.at(IndexOf(role)) + ", for " +
                    std::string(LineRoles.at(IndexOf(role)).signal) + ", by " +
                    (holder.empty() ? "the system" : "\"" + holder + "\"");
        }
    }
    return "The lines of " + place_->chip.path +
           " cannot be claimed: " + std::generic_category().message(error) + "." +
           (held.empty() ? "" : " In use: " + held + ". End that, or choose other lines.");
}

void GpioLines::Set(LineLevels outputs, LineLevels changed) {
    gpio_v2_line_values values{outputs, changed};
    if (!failed_ && Ioctl(device_, GPIO_V2_LINE_SET_VALUES_IOCTL, &values) == -1) {
        NoteFailure();
    }
}

LineLevels GpioLines::Get() {
    if (failed_) {
        return undriven;
    }
    gpio_v2_line_values values{0, undriven};
    if (Ioctl(device_, GPIO_V2_LINE_GET_VALUES_IOCTL, &values) == -1) {
        NoteFailure();
        return undriven;
    }
    return static_cast<LineLevels>(values.bits) & undriven;
}

/// RDY may be low already, and edges from before may be waiting; one that comes after the look
/// at the level ends the sleep.
bool GpioLines::WaitForReady(std::chrono::nanoseconds limit) {
    const steady_clock::time_point end = steady_clock::now() + limit;
    while (!failed_) {
        DropEvents();
        if ((Get() & LevelBit(LineRole::Rdy)) == 0) {
            return true;
        }
        const auto left = end - steady_clock::now();
        if (left <= left.zero()) {
            return false;
        }
        if (reportsEdges_) {
            pollfd waited{device_, POLLIN, 0};
            const auto sleep = std::min(maxSleep, std::chrono::ceil<milliseconds>(left));
            poll(&waited, 1, static_cast<int>(sleep.count()));
        } else {
            std::this_thread::sleep_for(pauseWithoutEdges);
        }
    }
    return false;
}

void GpioLines::DropEvents() const {
    gpio_v2_line_event event{};
    while (reportsEdges_ && read(device_, &event, sizeof event) > 0) {
    }
}

/// Reads give open lines from then on.
void GpioLines::NoteFailure() {
    failed_ = true;
    failure_ = place_->chip.path + " stopped working: " + std::generic_category().message(errno) +
               ". Check its connection and start the program again.";
}

}  // namespace vx3260
