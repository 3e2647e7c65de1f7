// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ports/GpioChips.h"
#include "ports/LineChoice.h"

namespace vx3260 {

/// Lines of one Linux GPIO chip, by the character device's second version of ioctls, one each. A
/// wait sleeps until the edge of RDY where the chip reports edges, and looks from time to time
/// where it does not. The inputs are pulled up where the chip can do that. After release the lines
/// keep what the chip gives them.
class GpioLines final : public Lines {
  public:
    /// The choice is of GPIO lines. Nothing is opened yet.
    explicit GpioLines(LineChoice choice) : choice_(std::move(choice)) {}
    ~GpioLines() override;
    GpioLines(const GpioLines&) = delete;
    GpioLines(GpioLines&&) = delete;
    GpioLines& operator=(const GpioLines&) = delete;
    GpioLines& operator=(GpioLines&&) = delete;

    bool Claim(LineLevels outputs) override;
    void Set(LineLevels outputs, LineLevels changed) override;
    LineLevels Get() override;
    bool WaitForReady(std::chrono::nanoseconds limit) override;
    std::string ChipName() const override;
    std::string Failure() const override { return failure_; }

  private:
    bool Request(int chip, LineLevels outputs, std::uint64_t inputFlags);
    std::string ClaimFailureDetail(int chip, int error) const;
    void NoteFailure();
    void DropEvents() const;

    LineChoice choice_;
    std::optional<GpioPlace> place_;
    std::vector<LineRole> requested_;  ///< those that have a line
    int device_ = -1;
    bool reportsEdges_ = false;
    bool failed_ = false;
    std::string failure_;
};

}  // namespace vx3260
