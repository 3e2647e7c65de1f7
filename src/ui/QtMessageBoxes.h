// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>

#include "app/MessageBoxes.h"

namespace vx3260 {

/// Message boxes on the screen, over the program's window in front. What has a detail, such as a
/// remedy with commands to copy, is also written to a log.
class QtMessageBoxes final : public MessageBoxes {
  public:
    /// `log` outlives the boxes; the program's is standard error.
    explicit QtMessageBoxes(std::ostream& log) : log_(log) {}

    MessageAnswer Show(const Message& message) override;

  private:
    std::ostream& log_;
};

}  // namespace vx3260
