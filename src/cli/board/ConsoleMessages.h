// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>

#include "app/MessageBoxes.h"

namespace vx3260 {

/// Message boxes for a shell: title, text and detail are printed, the further lines indented.
/// Questions are not asked but answered with No.
class ConsoleMessages final : public MessageBoxes {
  public:
    explicit ConsoleMessages(std::ostream& stream) : stream_(stream) {}

    MessageAnswer Show(const Message& message) override;

  private:
    std::ostream& stream_;
};

}  // namespace vx3260
