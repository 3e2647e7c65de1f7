// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <linux/gpio.h>
#include <umockdev.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "simulator/SimulatedBoard.h"

namespace vx3260::test {

/// GPIO chips, /dev/gpiochip0 and so on, which answer the second version of the ioctls. The
/// simulated board is wired to the lines of gpiochip0 that the wiring table names, and to GPIO25
/// as the line that is held high. Lives under umockdev's preloaded library; only one at a time.
class FakeGpioChip {
  public:
    /// gpiochip0 has the lines GPIO0 to GPIO53.
    FakeGpioChip();
    ~FakeGpioChip();
    FakeGpioChip(const FakeGpioChip&) = delete;
    FakeGpioChip(FakeGpioChip&&) = delete;
    FakeGpioChip& operator=(const FakeGpioChip&) = delete;
    FakeGpioChip& operator=(FakeGpioChip&&) = delete;

    /// One more chip, "gpiochip1" ..., with nothing wired to it.
    void AddChip(const std::string& name, const std::string& label,
                 const std::vector<std::string>& lineNames);

    SimulatedBoard& Board() { return board_; }

    /// A path as the file system outside the fake has it.
    std::string Real(const std::string& path) const;

    /// Somebody else holds a line of gpiochip0.
    void Hold(unsigned offset, const std::string& consumer) { holders_[offset] = consumer; }

    /// From now on, after `after` more of them, an ioctl fails with this errno.
    void Fail(unsigned long request, int error, int after = 0) {
        faults_[request] = {error, after};
    }

    /// Requests with one of these flags on a line fail, as on chips that cannot do that.
    void RefuseFlags(std::uint64_t refused) { refusedFlags_ = refused; }

    /// Reports an edge of RDY.
    void SendEdge();

    int Count(unsigned long request) { return counts_[request]; }
    int Count();
    void Forget() { counts_.clear(); }

    std::map<unsigned, std::uint64_t> flags;  ///< of the lines of the last request, by offset
    std::string requestedFrom;                ///< the chip of the last request
    std::function<bool()> readyLine;          ///< the level of RDY, in the board's place
    unsigned char pattern = 0x10;             ///< the data register that the lines stand for

  private:
    struct Chip {
        std::string path;
        std::string label;
        std::vector<std::string> lineNames;
    };
    struct Fault {
        int error;
        int after;
    };

    static gboolean Handle(UMockdevIoctlBase* base, UMockdevIoctlClient* client,
                           FakeGpioChip* self);
    void AddDevice(const std::string& name);
    int Answer(const Chip* chip, unsigned long request, void* data);
    int AnswerLineInfo(const Chip& chip, gpio_v2_line_info& info);
    int AnswerRequest(const Chip& chip, gpio_v2_line_request& request);
    void Set(const gpio_v2_line_values& values);
    void Get(gpio_v2_line_values& values);
    unsigned char PollStatus();

    UMockdevTestbed* testbed_;
    UMockdevIoctlBase* handler_;
    SimulatedBoard board_;
    std::map<std::string, Chip> chips_;
    std::map<unsigned, std::string> holders_;
    std::vector<unsigned> requested_;
    std::uint64_t refusedFlags_ = 0;
    std::map<unsigned long, int> counts_;
    std::map<unsigned long, Fault> faults_;
};

}  // namespace vx3260::test
