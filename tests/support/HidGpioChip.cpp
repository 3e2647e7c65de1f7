// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/HidGpioChip.h"

#include <fcntl.h>
#include <linux/uhid.h>
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <stdexcept>

#include "ports/GpioChips.h"

namespace vx3260::test {
namespace {

constexpr unsigned char reports[] = {0x06, 0x00, 0xFF, 0x09, 0x01, 0xA1, 0x01, 0x85,
                                     0x16, 0x15, 0x00, 0x26, 0xFF, 0x00, 0x75, 0x08,
                                     0x95, 0x3F, 0x09, 0x01, 0x81, 0x02, 0xC0};
constexpr unsigned char getLines = 3;
constexpr unsigned char setLines = 4;

/// Bits of the data register by line.
constexpr unsigned outputs[] = {0x08, 0x01, 0x02};

std::uint16_t SizeOfReport(unsigned char number) {
    switch (number) {
        case 2:
            return 5;
        case getLines:
            return 2;
        case 5:
            return 3;
        case 6:
            return 14;
        default:
            return 16;
    }
}

}  // namespace

HidGpioChip::HidGpioChip() : device_(open("/dev/uhid", O_RDWR | O_CLOEXEC)) {
    uhid_event event{};
    event.type = UHID_CREATE2;
    std::strcpy(reinterpret_cast<char*>(event.u.create2.name), "bench cp2112");
    event.u.create2.rd_size = sizeof reports;
    event.u.create2.bus = 3;  // USB
    event.u.create2.vendor = 0x10C4;
    event.u.create2.product = 0xEA90;
    std::memcpy(event.u.create2.rd_data, reports, sizeof reports);
    if (write(device_, &event, sizeof event) != sizeof event) {
        throw std::runtime_error("no device could be made through /dev/uhid");
    }
    thread_ = std::thread([this] { Serve(); });
    for (int tries = 0; tries < 100 && path_.empty(); ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        const std::vector<std::string> chips = FindGpioChips();
        path_ = !chips.empty() && GpioChipAt(chips.front()) ? chips.front() : "";
    }
    if (path_.empty()) {
        Unplug();
        throw std::runtime_error("no GPIO chip came");
    }
}

HidGpioChip::~HidGpioChip() {
    Unplug();
}

void HidGpioChip::Unplug() {
    if (device_ == -1) {
        return;
    }
    uhid_event event{};
    event.type = UHID_DESTROY;
    if (write(device_, &event, sizeof event) != sizeof event) {
        std::perror("uhid");
    }
    stop_ = true;
    thread_.join();
    close(device_);
    device_ = -1;
}

void HidGpioChip::Serve() {
    constexpr int lookForStop = 20;  // milliseconds
    uhid_event event{};
    while (!stop_) {
        pollfd waited{device_, POLLIN, 0};
        if (poll(&waited, 1, lookForStop) <= 0) {
            continue;
        }
        if (read(device_, &event, sizeof event) <= 0) {
            return;
        }
        uhid_event answer{};
        if (event.type == UHID_SET_REPORT) {
            const uhid_set_report_req& report = event.u.set_report;
            if (report.rnum == setLines) {
                Set(report.data[1], report.data[2]);
            }
            answer.type = UHID_SET_REPORT_REPLY;
            answer.u.set_report_reply.id = report.id;
        } else if (event.type == UHID_GET_REPORT) {
            const uhid_get_report_req& report = event.u.get_report;
            answer.type = UHID_GET_REPORT_REPLY;
            answer.u.get_report_reply.id = report.id;
            answer.u.get_report_reply.size = SizeOfReport(report.rnum);
            answer.u.get_report_reply.data[0] = report.rnum;
            if (report.rnum == getLines) {
                answer.u.get_report_reply.data[1] = static_cast<unsigned char>(Lines());
            }
        } else {
            continue;
        }
        if (write(device_, &answer, sizeof answer) != sizeof answer) {
            return;
        }
    }
}

void HidGpioChip::Set(unsigned values, unsigned mask) {
    unsigned next = pattern_;
    for (unsigned line = 0; line < std::size(outputs); ++line) {
        if ((mask >> line & 1U) != 0) {
            next = (values >> line & 1U) != 0 ? next | outputs[line] : next & ~outputs[line];
        }
    }
    if (next != pattern_) {
        pattern_ = next;
        board_.Write(0, static_cast<std::uint8_t>(pattern_));
    }
}

/// The board's time passes with the looks at its lines, faster while the clock rests.
unsigned HidGpioChip::Lines() {
    constexpr unsigned dout = 0x10;
    constexpr unsigned notReady = 0x40;
    constexpr int looksAtOnce = 500;
    ++looks_;
    unsigned status = board_.Read(1);
    for (int i = 1; i < looksAtOnce && (pattern_ & outputs[0]) != 0 && (status & notReady) != 0;
         ++i) {
        status = board_.Read(1);
    }
    if (std::chrono::steady_clock::now() < readyFrom_.load() && (pattern_ & outputs[0]) != 0) {
        status |= notReady;
    }
    return ((status & dout) != 0 ? 1U << 3U : 0) | ((status & notReady) != 0 ? 1U << 4U : 0);
}

}  // namespace vx3260::test
