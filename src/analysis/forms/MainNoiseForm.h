// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/forms/NoiseForm.h"

namespace vx3260 {

/// The noise of the block of main ADC codes.
class MainNoiseForm final : public NoiseForm {
  public:
    explicit MainNoiseForm(Services& services, QWidget* parent = nullptr)
        : NoiseForm(services, Converter::Main, parent) {}
};

}  // namespace vx3260
