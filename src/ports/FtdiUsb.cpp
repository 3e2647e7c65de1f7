// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/FtdiUsb.h"

#include <ftdi.h>

namespace vx3260 {
namespace {

constexpr unsigned char shortestLatency = 1;  // in ms
/// With the bytes of one packet: a byte takes a microsecond in bit-bang mode, 4 times this rate.
constexpr int bitBangRate = 250000;
constexpr unsigned packetWithStatus = PinExchange::Packet + 2;
/// Reads without a sample after which the chip counts as lost, each of the latency timer.
constexpr int maxEmptyReads = 1000;

class LibFtdi final : public PinExchange {
  public:
    LibFtdi() : context_(ftdi_new()) {}
    ~LibFtdi() override {
        if (open_) {
            ftdi_set_bitmode(context_, 0, BITMODE_RESET);
            ftdi_usb_close(context_);
        }
        ftdi_free(context_);
    }
    LibFtdi(const LibFtdi&) = delete;
    LibFtdi(LibFtdi&&) = delete;
    LibFtdi& operator=(const LibFtdi&) = delete;
    LibFtdi& operator=(LibFtdi&&) = delete;

    bool Open(const FtdiDevice& device, std::uint8_t outputs) override {
        if (context_ == nullptr) {
            return false;
        }
        context_->module_detach_mode = AUTO_DETACH_REATACH_SIO_MODULE;
        open_ = ftdi_usb_open_bus_addr(context_, device.bus, device.address) == 0;
        return open_ && ftdi_set_latency_timer(context_, shortestLatency) == 0 &&
               ftdi_set_baudrate(context_, bitBangRate) == 0 &&
               ftdi_read_data_set_chunksize(context_, packetWithStatus) == 0 &&
               ftdi_set_bitmode(context_, outputs, BITMODE_SYNCBB) == 0 &&
               ftdi_tcioflush(context_) == 0;
    }

    bool Exchange(std::span<const std::uint8_t> bytes, std::span<std::uint8_t> samples) override {
        const auto count = static_cast<int>(bytes.size());
        if (ftdi_write_data(context_, bytes.data(), count) != count) {
            return false;
        }
        int emptyReads = 0;
        for (int got = 0; got < count && emptyReads < maxEmptyReads;) {
            const int read = ftdi_read_data(context_, samples.data() + got, count - got);
            if (read < 0) {
                return false;
            }
            emptyReads = read == 0 ? emptyReads + 1 : 0;
            got += read;
        }
        return emptyReads < maxEmptyReads;
    }

    std::string Failure() const override {
        const char* const text = context_ != nullptr ? ftdi_get_error_string(context_) : nullptr;
        return text != nullptr ? text : "no memory";
    }

  private:
    ftdi_context* context_;
    bool open_ = false;
};

}  // namespace

std::unique_ptr<PinExchange> FtdiUsb() {
    return std::make_unique<LibFtdi>();
}

}  // namespace vx3260
