// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/forms/NoiseForm.h"

namespace vx3260 {

/// The noise of the block of main ADC codes.
class MainNoiseForm final : public NoiseForm {
    Q_OBJECT

  public:
    explicit MainNoiseForm(Services& services, QWidget* parent = nullptr)
        : NoiseForm(services, Converter::Main, parent) {
        setObjectName(QStringLiteral("MainNoiseForm"));
    }
};

}  // namespace vx3260
