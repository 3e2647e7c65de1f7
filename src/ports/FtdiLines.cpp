// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/FtdiLines.h"

#include <algorithm>
#include <utility>

#include "numbers/SimilarText.h"

namespace vx3260 {
namespace {

using std::chrono::steady_clock;

/// In the order of their bits.
const std::vector<std::string>& PinNames() {
    static const std::vector<std::string> names{"TXD", "RXD", "RTS", "CTS",
                                                "DTR", "DSR", "DCD", "RI"};
    return names;
}

constexpr LineLevels allInputs = LevelBit(LineRole::Dout) | LevelBit(LineRole::Rdy);

}  // namespace

FtdiLines::FtdiLines(LineChoice choice, std::vector<FtdiDevice> devices,
                     std::unique_ptr<PinExchange> pins)
    : choice_(std::move(choice)),
      devices_(std::move(devices)),
      pins_(std::move(pins)),
      name_(choice_.device) {}

std::string FtdiLines::ChipName() const {
    return name_.empty() ? "FTDI" : "FTDI " + name_;
}

bool FtdiLines::FindPins() {
    for (const LineRoleTraits& role : LineRoles) {
        const std::string& name = choice_.lines.at(IndexOf(role.role));
        if (name.empty()) {
            continue;
        }
        const auto pin = std::ranges::find(PinNames(), name);
        if (pin == PinNames().end()) {
            failure_ =
                "FTDI chips have the pins TXD, RXD, RTS, CTS, DTR, DSR, DCD and RI, and no " +
                name + Suggestion(name, PinNames());
            return false;
        }
        bits_.at(IndexOf(role.role)) = static_cast<std::uint8_t>(1U << (pin - PinNames().begin()));
    }
    return true;
}

/// The converter is reset after what the chip's start may have done to its lines.
bool FtdiLines::Claim(LineLevels outputs) {
    if (!FindPins()) {
        return false;
    }
    if (!pins_) {
        failure_ =
            "This program was built without libftdi1, which reaches FTDI chips. Install "
            "libftdi1-dev and build it again.";
        return false;
    }
    const std::optional<FtdiDevice> device = ChooseFtdiDevice(devices_, choice_.device, failure_);
    if (!device) {
        return false;
    }
    unsigned outputPins = 0;
    for (const LineRoleTraits& role : LineRoles) {
        outputPins |= role.output ? bits_.at(IndexOf(role.role)) : 0U;
    }
    if (!pins_->Open(*device, static_cast<std::uint8_t>(outputPins))) {
        failure_ = FtdiOpenFailureDetail(*device, pins_->Failure());
        return false;
    }
    name_ = choice_.device.empty() ? device->serial : choice_.device;
    failed_ = false;
    failure_.clear();
    Send(std::vector<std::uint8_t>(PinExchange::Packet,
                                   BytesOf(outputs & ~LevelBit(LineRole::Reset))));
    Send({BytesOf(outputs)});
    return !failed_;
}

std::uint8_t FtdiLines::BytesOf(LineLevels levels) const {
    unsigned byte = 0;
    for (const LineRoleTraits& role : LineRoles) {
        const bool high = role.output && (levels & LevelBit(role.role)) != 0;
        byte |= high ? bits_.at(IndexOf(role.role)) : 0U;
    }
    return static_cast<std::uint8_t>(byte);
}

LineLevels FtdiLines::LevelsOf(std::uint8_t sample) const {
    LineLevels levels = 0;
    for (const LineRoleTraits& role : LineRoles) {
        const bool high = !role.output && (sample & bits_.at(IndexOf(role.role))) != 0;
        levels |= high ? LevelBit(role.role) : 0;
    }
    return levels;
}

void FtdiLines::Set(LineLevels outputs, LineLevels /*changed*/) {
    Send({BytesOf(outputs)});
}

LineLevels FtdiLines::Get() {
    const std::vector<std::uint8_t> samples = Send({last_});
    return failed_ ? allInputs : LevelsOf(samples.back());
}

/// Each look is a packet of samples.
bool FtdiLines::WaitForReady(std::chrono::nanoseconds limit) {
    const steady_clock::time_point end = steady_clock::now() + limit;
    do {
        const std::vector<std::uint8_t> samples = Send({last_});
        const auto low = [this](std::uint8_t sample) {
            return (LevelsOf(sample) & LevelBit(LineRole::Rdy)) == 0;
        };
        if (!failed_ && std::ranges::any_of(samples, low)) {
            return true;
        }
    } while (!failed_ && steady_clock::now() < end);
    return false;
}

/// A sample is taken before its byte is put out. So a read is the sample of the next byte, which
/// repeats the one before where the next step is another read or none.
void FtdiLines::Exchange(std::span<LineStep> steps) {
    std::vector<std::uint8_t> bytes;
    std::vector<std::size_t> sampleOf(steps.size());
    for (std::size_t i = 0; i < steps.size(); ++i) {
        sampleOf[i] = bytes.size();
        const bool nextSamples = i + 1 < steps.size() && steps[i + 1].write;
        if (steps[i].write) {
            bytes.push_back(BytesOf(steps[i].levels));
        } else if (!nextSamples) {
            bytes.push_back(bytes.empty() ? last_ : bytes.back());
        }
    }
    const std::vector<std::uint8_t> samples = Send(std::move(bytes));
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (!steps[i].write) {
            steps[i].levels = failed_ ? allInputs : LevelsOf(samples.at(sampleOf[i]));
        }
    }
}

/// In whole packets, padded with the last byte. Returns a sample for each byte, the padding too.
std::vector<std::uint8_t> FtdiLines::Send(std::vector<std::uint8_t> bytes) {
    constexpr std::size_t packet = PinExchange::Packet;
    last_ = bytes.empty() ? last_ : bytes.back();
    bytes.resize((bytes.size() + packet - 1) / packet * packet, last_);
    std::vector<std::uint8_t> samples(bytes.size());
    for (std::size_t done = 0; done < bytes.size() && !failed_;) {
        const std::size_t part = std::min(PinExchange::MaxExchange, bytes.size() - done);
        if (!pins_->Exchange(std::span(bytes).subspan(done, part),
                             std::span(samples).subspan(done, part))) {
            failed_ = true;
            failure_ = ChipName() + " stopped working: " + pins_->Failure() +
                       ". Plug it in again and start the program again.";
        }
        done += part;
    }
    return samples;
}

}  // namespace vx3260
