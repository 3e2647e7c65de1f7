// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/UsbFtdiChip.h"

#include <endian.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vx3260::test {
namespace {

constexpr int syncBitBang = 4;
constexpr std::size_t packet = 62;
constexpr std::uint8_t modemStatus[] = {0x01, 0x60};

constexpr std::uint8_t deviceDescriptor[] = {18,   1,    0,    2, 0,    0, 0, 8, 0x03,
                                             0x04, 0x01, 0x60, 0, 0x06, 1, 2, 3, 1};
constexpr std::uint8_t configuration[] = {9,  2, 32, 0,   1,   1,    0, 0xA0, 45, 9,    4,
                                          0,  0, 2,  255, 255, 255,  2, 7,    5,  0x81, 2,
                                          64, 0, 0,  7,   5,   0x02, 2, 64,   0,  0};
constexpr std::string_view texts[] = {"FTDI", "FT232R USB UART", "VX000001"};

std::vector<std::uint8_t> Descriptor(unsigned kind, unsigned index) {
    if (kind == 1) {
        return {std::begin(deviceDescriptor), std::end(deviceDescriptor)};
    }
    if (kind == 2) {
        return {std::begin(configuration), std::end(configuration)};
    }
    if (kind != 3 || index > std::size(texts)) {
        return {};
    }
    if (index == 0) {
        return {4, 3, 9, 4};
    }
    const std::string_view text = texts[index - 1];
    std::vector<std::uint8_t> descriptor{static_cast<std::uint8_t>(2 + 2 * text.size()), 3};
    for (const char c : text) {
        descriptor.push_back(static_cast<std::uint8_t>(c));
        descriptor.push_back(0);
    }
    return descriptor;
}

}  // namespace

/// USB/IP's, all words big-endian.
struct UsbFtdiChip::Header {
    std::uint32_t command, sequence, device, in, endpoint, flags;
    std::uint32_t length, start, packets, interval;
    std::array<std::uint8_t, 8> setup;
};

UsbFtdiChip::UsbFtdiChip() {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) {
        throw std::runtime_error("no sockets");
    }
    socket_ = ends[1];
    const std::string line =
        "0 " + std::to_string(ends[0]) + " 1 2";  // port, socket, device, speed
    const int attach = open("/sys/devices/platform/vhci_hcd.0/attach", O_WRONLY | O_CLOEXEC);
    const bool attached =
        write(attach, line.data(), line.size()) == static_cast<ssize_t>(line.size());
    close(attach);
    close(ends[0]);
    if (!attached) {
        throw std::runtime_error("no USB device could be attached");
    }
    thread_ = std::thread([this] { Serve(); });
}

void UsbFtdiChip::Unplug() {
    if (socket_ != -1) {
        shutdown(socket_, SHUT_RDWR);
        thread_.join();
        close(socket_);
        socket_ = -1;
    }
}

bool UsbFtdiChip::Receive(void* to, std::size_t size) const {
    return recv(socket_, to, size, MSG_WAITALL) == static_cast<ssize_t>(size);
}

void UsbFtdiChip::Reply(const Header& header, std::span<const std::uint8_t> data,
                        int length) const {
    constexpr std::uint32_t submitted = 1;
    const std::uint32_t answer[12] = {
        htobe32(header.command == submitted ? 3 : 4), htobe32(header.sequence), 0, 0, 0, 0,
        htobe32(static_cast<std::uint32_t>(length))};
    send(socket_, answer, sizeof answer, MSG_NOSIGNAL);
    if (!data.empty()) {
        send(socket_, data.data(), data.size(), MSG_NOSIGNAL);
    }
}

void UsbFtdiChip::AwaitFrame() const {
    const auto frame = std::chrono::milliseconds(1);
    const auto frames = (std::chrono::steady_clock::now() - start_) / frame;
    std::this_thread::sleep_until(start_ + (frames + 1) * frame);
}

/// The board's time passes faster while the clock rests and no result is ready.
std::uint8_t UsbFtdiChip::Sample() {
    constexpr int looksAtOnce = 50;
    constexpr unsigned dout = 0x10;
    constexpr unsigned notReady = 0x40;
    unsigned status = board_.Read(1);
    for (int i = 0; i < looksAtOnce && (pins_ & 1U) != 0 && (status & notReady) != 0; ++i) {
        status = board_.Read(1);
    }
    return static_cast<std::uint8_t>((pins_ & 0x15U) | ((status & dout) != 0 ? 2U : 0U) |
                                     ((status & notReady) != 0 ? 8U : 0U));
}

void UsbFtdiChip::Step(std::uint8_t out) {
    samples_.push_back(Sample());
    pins_ = out;
    const unsigned next = 0x10U | ((out & 1U) != 0 ? 8U : 0U) | ((out & 4U) != 0 ? 1U : 0U) |
                          ((out & 16U) != 0 ? 2U : 0U);
    if (next != pattern_) {
        pattern_ = next;
        board_.Write(0, static_cast<std::uint8_t>(pattern_));
    }
}

std::vector<std::uint8_t> UsbFtdiChip::Control(const std::array<std::uint8_t, 8>& setup) {
    const unsigned request = setup[0] * 256U + setup[1];
    switch (request) {
        case 0x8006:
            return Descriptor(setup[3], setup[2]);
        case 0x4009:
            latency_ = setup[2];
            return {};
        case 0x400B:
            mode_ = setup[3];
            samples_.clear();
            return {};
        case 0x4000:
            samples_.clear();
            return {};
        case 0xC00A:
            return {static_cast<std::uint8_t>(latency_)};
        case 0xC00C:
            return {Sample()};
        case 0xC005:
            return {modemStatus[0], modemStatus[1]};
        case 0x8000:
            return {0, 0};
        default:
            return {};
    }
}

/// Packets of samples behind two bytes of status. One that is not full waits for the latency timer.
std::vector<std::uint8_t> UsbFtdiChip::Samples(std::size_t length) {
    std::vector<std::uint8_t> data;
    bool more = true;
    while (more && data.size() + packet + 2 <= length) {
        if (samples_.size() < packet) {
            std::this_thread::sleep_for(std::chrono::milliseconds(latency_));
        }
        data.insert(data.end(), std::begin(modemStatus), std::end(modemStatus));
        const std::size_t count = std::min(packet, samples_.size());
        for (std::size_t i = 0; i < count; ++i) {
            data.push_back(samples_.front());
            samples_.pop_front();
        }
        more = count == packet;
    }
    return data;
}

void UsbFtdiChip::Serve() {
    Header header{};
    while (Receive(&header, sizeof header)) {
        for (std::uint32_t* const word :
             {&header.command, &header.sequence, &header.in, &header.endpoint, &header.length}) {
            *word = be32toh(*word);
        }
        if (header.command == 2) {  // unlink: nothing is ever pending
            Reply(header, {}, 0);
            continue;
        }
        std::vector<std::uint8_t> data;
        if (header.in == 0 && header.length > 0) {
            data.resize(header.length);
            Receive(data.data(), data.size());
        }
        if (header.endpoint == 0) {
            data = Control(header.setup);
            data.resize(header.in != 0 ? std::min<std::size_t>(data.size(), header.length) : 0);
            Reply(header, data, static_cast<int>(header.in != 0 ? data.size() : header.length));
            continue;
        }
        if (header.in == 0) {
            ++exchanges_;
            for (const std::uint8_t byte : data) {
                if (mode_ == syncBitBang) {
                    Step(byte);
                }
            }
            AwaitFrame();
            Reply(header, {}, static_cast<int>(header.length));
            continue;
        }
        data = Samples(header.length);
        AwaitFrame();
        Reply(header, data, static_cast<int>(data.size()));
    }
}

}  // namespace vx3260::test
