// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FakeGpioChip.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <numeric>
#include <stdexcept>

namespace vx3260::test {
namespace {

/// The descriptor of a request is an opening of this device.
constexpr const char* requestDevice = "gpio-request";

struct Output {
    unsigned offset;
    unsigned char bit;  ///< in the data register
};
constexpr std::array outputs{Output{24, 0x08}, Output{23, 0x01}, Output{22, 0x02},
                             Output{25, 0x10}};
constexpr unsigned doutOffset = 18;
constexpr unsigned rdyOffset = 17;

constexpr std::uint64_t Bit(std::size_t index) {
    return std::uint64_t{1} << index;
}

}  // namespace

FakeGpioChip::FakeGpioChip()
    : testbed_(umockdev_testbed_new()), handler_(umockdev_ioctl_base_new()) {
    g_signal_connect(handler_, "handle-ioctl", G_CALLBACK(Handle), this);
    std::vector<std::string> names;
    constexpr int lines = 54;
    names.reserve(lines);
    for (int i = 0; i < lines; ++i) {
        names.push_back("GPIO" + std::to_string(i));
    }
    AddChip("gpiochip0", "pinctrl-fake", names);
    AddDevice(requestDevice);
}

FakeGpioChip::~FakeGpioChip() {
    g_object_unref(handler_);
    g_object_unref(testbed_);
}

void FakeGpioChip::AddChip(const std::string& name, const std::string& label,
                           const std::vector<std::string>& lineNames) {
    chips_["/dev/" + name] = {"/dev/" + name, label, lineNames};
    AddDevice(name);
}

void FakeGpioChip::AddDevice(const std::string& name) {
    const std::string device = "P: /devices/" + name + "\nN: " + name + "\nE: DEVNAME=/dev/" +
                               name + "\nE: SUBSYSTEM=gpio\nE: MAJOR=254\nE: MINOR=0\n";
    if (umockdev_testbed_add_from_string(testbed_, device.c_str(), nullptr) == FALSE) {
        throw std::runtime_error("no fake device; is umockdev's library preloaded?");
    }
    umockdev_testbed_attach_ioctl(testbed_, ("/dev/" + name).c_str(), handler_, nullptr);
}

std::string FakeGpioChip::Real(const std::string& path) const {
    gchar* const root = umockdev_testbed_get_root_dir(testbed_);
    std::string real = root + path;
    g_free(root);
    return real;
}

void FakeGpioChip::SendEdge() {
    gpio_v2_line_event event{};
    event.id = GPIO_V2_LINE_EVENT_FALLING_EDGE;
    event.offset = rdyOffset;
    const int fd =
        umockdev_testbed_get_dev_fd(testbed_, (std::string("/dev/") + requestDevice).c_str());
    // Full of edges that nobody reads, it takes no more, as the kernel's queue does.
    fcntl(fd, F_SETFL, O_NONBLOCK);
    if (write(fd, &event, sizeof event) != sizeof event && errno != EAGAIN) {
        throw std::runtime_error("the edge cannot be sent");
    }
}

int FakeGpioChip::Count() {
    return std::accumulate(counts_.begin(), counts_.end(), 0,
                           [](int sum, const auto& count) { return sum + count.second; });
}

gboolean FakeGpioChip::Handle(UMockdevIoctlBase* /*base*/, UMockdevIoctlClient* client,
                              FakeGpioChip* self) {
    const unsigned long request = umockdev_ioctl_client_get_request(client);
    const auto chip = self->chips_.find(umockdev_ioctl_client_get_devnode(client));
    UMockdevIoctlData* const argument = umockdev_ioctl_data_resolve(
        umockdev_ioctl_client_get_arg(client), 0, _IOC_SIZE(request), nullptr);
    const int error =
        self->Answer(chip == self->chips_.end() ? nullptr : &chip->second, request, argument->data);
    umockdev_ioctl_client_complete(client, error == 0 ? 0 : -1, error);
    umockdev_ioctl_data_unref(argument);
    return TRUE;
}

/// 0 or an errno. `chip` is null for a descriptor of requested lines.
int FakeGpioChip::Answer(const Chip* chip, unsigned long request, void* data) {
    ++counts_[request];
    const auto fault = faults_.find(request);
    if (fault != faults_.end() && --fault->second.after < 0) {
        return fault->second.error;
    }
    if (chip == nullptr && request == GPIO_V2_LINE_SET_VALUES_IOCTL) {
        Set(*static_cast<gpio_v2_line_values*>(data));
    } else if (chip == nullptr && request == GPIO_V2_LINE_GET_VALUES_IOCTL) {
        Get(*static_cast<gpio_v2_line_values*>(data));
    } else if (chip != nullptr && request == GPIO_GET_CHIPINFO_IOCTL) {
        auto& info = *static_cast<gpiochip_info*>(data);
        chip->label.copy(info.label, sizeof info.label);
        info.lines = static_cast<std::uint32_t>(chip->lineNames.size());
    } else if (chip != nullptr && request == GPIO_V2_GET_LINEINFO_IOCTL) {
        return AnswerLineInfo(*chip, *static_cast<gpio_v2_line_info*>(data));
    } else if (chip != nullptr && request == GPIO_V2_GET_LINE_IOCTL) {
        return AnswerRequest(*chip, *static_cast<gpio_v2_line_request*>(data));
    } else {
        return ENOTTY;
    }
    return 0;
}

int FakeGpioChip::AnswerLineInfo(const Chip& chip, gpio_v2_line_info& info) {
    if (info.offset >= chip.lineNames.size()) {
        return EINVAL;
    }
    chip.lineNames[info.offset].copy(info.name, sizeof info.name);
    const auto holder = holders_.find(info.offset);
    if (chip.path == "/dev/gpiochip0" && holder != holders_.end()) {
        info.flags |= GPIO_V2_LINE_FLAG_USED;
        holder->second.copy(info.consumer, sizeof info.consumer);
    }
    return 0;
}

int FakeGpioChip::AnswerRequest(const Chip& chip, gpio_v2_line_request& request) {
    requestedFrom = chip.path;
    requested_.assign(request.offsets, request.offsets + request.num_lines);
    std::uint64_t start = 0;
    for (std::size_t i = 0; i < requested_.size(); ++i) {
        if (holders_.contains(requested_[i])) {
            return EBUSY;
        }
        flags[requested_[i]] = request.config.flags;
        for (unsigned a = 0; a < request.config.num_attrs; ++a) {
            const gpio_v2_line_config_attribute& attribute = request.config.attrs[a];
            if ((attribute.mask & Bit(i)) == 0) {
                continue;
            }
            if (attribute.attr.id == GPIO_V2_LINE_ATTR_ID_FLAGS) {
                flags[requested_[i]] = attribute.attr.flags;
            } else if (attribute.attr.id == GPIO_V2_LINE_ATTR_ID_OUTPUT_VALUES) {
                start |= attribute.attr.values & Bit(i);
            }
        }
        if ((flags[requested_[i]] & refusedFlags_) != 0) {
            return ENXIO;
        }
    }
    request.fd = open((std::string("/dev/") + requestDevice).c_str(), O_RDWR | O_CLOEXEC);
    Set({start, ~std::uint64_t{0}});
    return request.fd == -1 ? errno : 0;
}

/// Lines that are inputs do not follow.
void FakeGpioChip::Set(const gpio_v2_line_values& values) {
    for (std::size_t i = 0; i < requested_.size(); ++i) {
        const auto* const output = std::ranges::find(outputs, requested_[i], &Output::offset);
        if ((values.mask & Bit(i)) != 0 && output != outputs.end() &&
            (flags[output->offset] & GPIO_V2_LINE_FLAG_OUTPUT) != 0) {
            const bool high = (values.bits & Bit(i)) != 0;
            pattern =
                static_cast<unsigned char>(high ? pattern | output->bit : pattern & ~output->bit);
        }
    }
    board_.Write(0, pattern);
}

void FakeGpioChip::Get(gpio_v2_line_values& values) {
    const unsigned status = PollStatus();
    for (std::size_t i = 0; i < requested_.size(); ++i) {
        const bool high = (requested_[i] == doutOffset && (status & 0x10U) != 0) ||
                          (requested_[i] == rdyOffset && (status & 0x40U) != 0);
        values.bits |= high ? values.mask & Bit(i) : 0;
    }
}

/// While data-ready is waited for, time passes on the board with each look: an edge, though it
/// comes too early, ends the sleep until the next.
unsigned char FakeGpioChip::PollStatus() {
    constexpr int pollsInOne = 500;
    if (readyLine) {
        return readyLine() ? 0x50 : 0x10;
    }
    const bool bitIsRead = (pattern & 0x08U) == 0;
    unsigned char status = board_.Read(1);
    for (int poll = 1; poll < pollsInOne && !bitIsRead && (status & 0x40U) != 0; ++poll) {
        status = board_.Read(1);
    }
    if (!bitIsRead && (status & 0x40U) != 0 &&
        (flags[rdyOffset] & GPIO_V2_LINE_FLAG_EDGE_FALLING) != 0) {
        SendEdge();
    }
    return status;
}

}  // namespace vx3260::test
