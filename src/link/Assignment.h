// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "link/RegisterFields.h"

namespace vx3260 {

/// A text that does not assign a value to a field. The message lists what is valid.
class AssignmentError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// One FIELD=VALUE of a command line or of a configuration, looked up.
struct Assignment {
    const RegisterMap::Field& field;
    std::int32_t code;
};

/// The modes that start a calibration. They do not stay in the register, so they cannot be
/// verified as other settings are.
inline constexpr std::span CalibrationModes = std::span(RegisterMap::ModeValues).subspan(4);

/// Looks up "FIELD=VALUE". VALUE is one of the field's names or a number, decimal or hexadecimal
/// with 0x; a name takes precedence over a number. Throws AssignmentError
/// for anything else and for a value that must not be written.
Assignment ParseAssignment(const RegisterMap::RegisterDescription& description,
                           std::string_view text);

/// The names of the values that a field can be set to; none where values have no names.
std::vector<std::string> WritableNames(const RegisterMap::Field& field);

/// What a field can be set to: "off|on", or "13 to 255" where values have no names.
std::string ValueHelp(const RegisterMap::Field& field);

}  // namespace vx3260
