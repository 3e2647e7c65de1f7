// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/forms/NoiseForm.h"

namespace vx3260 {

/// The noise of the block of aux ADC codes.
class AuxNoiseForm final : public NoiseForm {
    Q_OBJECT

  public:
    explicit AuxNoiseForm(Services& services, QWidget* parent = nullptr)
        : NoiseForm(services, Converter::Aux, parent) {
        setObjectName(QStringLiteral("AuxNoiseForm"));
    }
};

}  // namespace vx3260
