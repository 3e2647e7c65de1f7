// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "app/Services.h"
#include "link/RegisterFields.h"

namespace vx3260 {

/// Opens the form of a register, one of ReadableRegisters, over `parent`, and returns when it has
/// been closed. The filter form opens in power-down mode only; otherwise a message box says so.
void OpenRegisterForm(Services& services, const RegisterMap::RegisterDescription& description,
                      QWidget* parent);

}  // namespace vx3260
