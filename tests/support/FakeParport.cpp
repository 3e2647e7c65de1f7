// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FakeParport.h"

#include <sys/ioctl.h>
// The ioctls' numbers are made by the header above.
#include <linux/ppdev.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <stdexcept>

namespace vx3260::test {
namespace {

constexpr unsigned dataRegister = 0;
constexpr unsigned statusRegister = 1;
constexpr unsigned controlRegister = 2;

}  // namespace

FakeParport::FakeParport(const std::string& baseAddress, int number)
    : testbed_(umockdev_testbed_new()), handler_(umockdev_ioctl_base_new()) {
    const std::string name = "parport" + std::to_string(number);
    const std::string device = "P: /devices/" + name + "\nN: " + name + "\nE: DEVNAME=/dev/" +
                               name + "\nE: SUBSYSTEM=ppdev\nE: MAJOR=99\nE: MINOR=0\n";
    if (umockdev_testbed_add_from_string(testbed_, device.c_str(), nullptr) == FALSE) {
        throw std::runtime_error("no fake device; is umockdev's library preloaded?");
    }
    g_signal_connect(handler_, "handle-ioctl", G_CALLBACK(Handle), this);
    umockdev_testbed_attach_ioctl(testbed_, ("/dev/" + name).c_str(), handler_, nullptr);
    const std::string folder = Real("/proc/sys/dev/parport/" + name);
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "/base-addr") << baseAddress << '\n';
}

FakeParport::~FakeParport() {
    g_clear_object(&opening_);
    g_object_unref(handler_);
    g_object_unref(testbed_);
}

std::string FakeParport::Real(const std::string& path) const {
    gchar* const root = umockdev_testbed_get_root_dir(testbed_);
    const std::string real = root + path;
    g_free(root);
    return real;
}

void FakeParport::Fail(unsigned long request, int error, int after) {
    faults_[request] = {error, after};
}

int FakeParport::Count() {
    return std::accumulate(counts_.begin(), counts_.end(), 0,
                           [](int sum, const auto& count) { return sum + count.second; });
}

gboolean FakeParport::Handle(UMockdevIoctlBase* /*base*/, UMockdevIoctlClient* client,
                             FakeParport* self) {
    const unsigned long request = umockdev_ioctl_client_get_request(client);
    UMockdevIoctlData* argument = nullptr;
    unsigned char none = 0;
    if (_IOC_SIZE(request) > 0) {
        argument = umockdev_ioctl_data_resolve(umockdev_ioctl_client_get_arg(client), 0,
                                               _IOC_SIZE(request), nullptr);
    }
    // Each opening of the device has a claim of its own.
    if (g_set_object(&self->opening_, G_OBJECT(client)) != FALSE) {
        self->claimed_ = false;
    }
    const int error = self->Answer(request, argument != nullptr ? argument->data : &none);
    umockdev_ioctl_client_complete(client, error == 0 ? 0 : -1, error);
    if (argument != nullptr) {
        umockdev_ioctl_data_unref(argument);
    }
    return TRUE;
}

/// 0 or an errno.
int FakeParport::Answer(unsigned long request, unsigned char* data) {
    ++counts_[request];
    const auto fault = faults_.find(request);
    if (fault != faults_.end() && --fault->second.after < 0) {
        return fault->second.error;
    }
    if (request == PPEXCL) {
        return claimed_ ? EINVAL : 0;
    }
    if (request == PPCLAIM) {
        claimed_ = true;
        board_.Write(controlRegister, 0x0C);
        return 0;
    }
    if (!claimed_) {
        return EINVAL;
    }
    const unsigned control = board_.Read(controlRegister);
    const auto setControl = [this](unsigned value) {
        board_.Write(controlRegister, static_cast<std::uint8_t>(value));
        return 0;
    };
    int direction = 0;
    switch (request) {
        case PPWDATA:
            board_.Write(dataRegister, *data);
            return 0;
        case PPRDATA:
            *data = board_.Read(dataRegister);
            return 0;
        case PPRSTATUS:
            *data = PollStatus();
            return 0;
        case PPWCONTROL:
            return setControl((control & 0x20U) | (*data & 0x2FU));
        case PPRCONTROL:
            *data = control & 0x0FU;
            return 0;
        case PPDATADIR:
            std::memcpy(&direction, data, sizeof direction);
            return setControl((control & 0x0FU) | (direction != 0 ? 0x20U : 0));
        default:
            return ENOTTY;
    }
}

/// An ioctl through the fake takes some 100 us: while data-ready is waited for, time on the board
/// passes just as fast.
unsigned char FakeParport::PollStatus() {
    constexpr int pollsInOne = 500;
    const bool bitIsRead = (board_.Read(dataRegister) & 0x08U) == 0;
    unsigned char status = board_.Read(statusRegister);
    for (int poll = 1; poll < pollsInOne && !bitIsRead && (status & 0x40U) != 0; ++poll) {
        status = board_.Read(statusRegister);
    }
    return status;
}

}  // namespace vx3260::test
