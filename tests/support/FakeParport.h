// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <umockdev.h>

#include <map>
#include <string>

#include "simulator/SimulatedBoard.h"

namespace vx3260::test {

/// A /dev/parportN with the simulated board behind it, which answers ppdev's ioctls as a PC's
/// printer port does. Lives under umockdev's preloaded library; only one at a time.
class FakeParport {
  public:
    /// `baseAddress` as the kernel's base-addr file has it: "888\t0".
    explicit FakeParport(const std::string& baseAddress = "888\t0", int number = 0);
    ~FakeParport();
    FakeParport(const FakeParport&) = delete;
    FakeParport(FakeParport&&) = delete;
    FakeParport& operator=(const FakeParport&) = delete;
    FakeParport& operator=(FakeParport&&) = delete;

    SimulatedBoard& Board() { return board_; }

    /// A path as the file system outside the fake has it.
    std::string Real(const std::string& path) const;

    /// From now on, after `after` more of them, an ioctl fails with this errno.
    void Fail(unsigned long request, int error, int after = 0);

    /// How often an ioctl was called since the last Forget.
    int Count(unsigned long request) { return counts_[request]; }
    int Count();
    void Forget() { counts_.clear(); }

  private:
    static gboolean Handle(UMockdevIoctlBase* base, UMockdevIoctlClient* client, FakeParport* self);
    int Answer(unsigned long request, unsigned char* data);
    unsigned char PollStatus();

    struct Fault {
        int error;
        int after;
    };

    UMockdevTestbed* testbed_;
    UMockdevIoctlBase* handler_;
    SimulatedBoard board_;
    GObject* opening_ = nullptr;  ///< the client of the last ioctl
    bool claimed_ = false;
    std::map<unsigned long, int> counts_;
    std::map<unsigned long, Fault> faults_;
};

}  // namespace vx3260::test
