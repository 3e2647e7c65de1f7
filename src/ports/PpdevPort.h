// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "ports/DevicePort.h"
#include "ports/ParportDevices.h"

namespace vx3260 {

/// A printer port through Linux's ppdev driver: for an ordinary user of the group that owns the
/// device. One ioctl for each data or status access.
///
/// The driver keeps a copy of the control register and knows only its low 4 bits. Bit 5, which
/// turns the data lines to inputs, is set by an ioctl of its own and remembered here; bits 4, 6 and
/// 7 read 0.
class PpdevPort final : public DevicePort {
  public:
    /// `path` names the device; the first one there is when empty.
    PpdevPort(const std::string& path, std::chrono::nanoseconds pollTime);
    ~PpdevPort() override;
    PpdevPort(const PpdevPort&) = delete;
    PpdevPort(PpdevPort&&) = delete;
    PpdevPort& operator=(const PpdevPort&) = delete;
    PpdevPort& operator=(PpdevPort&&) = delete;

    std::int32_t GetParallelPortCount() override;
    std::string Name() const override { return path_.substr(path_.rfind('/') + 1); }
    std::string FailureDetail() const override { return failure_; }

  protected:
    /// Exclusive, and so without waiting for whoever holds the port.
    bool Claim() override;
    void WriteRegister(std::int16_t offset, std::uint8_t value) override;
    std::uint8_t ReadRegister(std::int16_t offset) override;

  private:
    PpdevPort(const std::optional<ParportDevice>& device, std::chrono::nanoseconds pollTime);

    bool Open();
    void WriteControl(std::uint8_t value);
    void Send(unsigned long request, std::uint8_t value);
    std::uint8_t Receive(unsigned long request);
    void NoteFailure();

    std::string path_;
    int device_ = -1;
    std::uint8_t inputs_ = 0;  ///< control bit 5 as it was written last
    bool failed_ = false;      ///< an access has failed; none is tried since
    std::string failure_;
};

}  // namespace vx3260
