#pragma once

#include "app/MessageBoxes.h"

namespace vx3260 {

/// Message boxes on the screen, over the program's window in front.
class QtMessageBoxes final : public MessageBoxes {
  public:
    MessageAnswer Show(const Message& message) override;
};

}  // namespace vx3260
