// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "link/BlockConditions.h"
#include "link/Configuration.h"

/// Configurations in words, for files, the forms and the command line alike.
namespace vx3260 {

/// Where a configuration is from.
struct ConfigurationHead {
    std::string program{};  ///< name and version
    BoardName board{};
    UtcTime time{};
    std::string file{};  ///< of a configuration from a file, whose board and time are not known
};

/// "Configuration of the VX3260, 2026-11-22 07:12:31 UTC", the board, the program, a line each.
std::vector<std::string> HeadLines(const ConfigurationHead& head);

/// What a field is set to, as the command line takes it: "2.56V", "69", of a coefficient
/// "0x800000".
std::string FieldValueText(const RegisterMap::Field& field, std::int32_t code);

/// " (19.7874 Hz)", the rate that the filter register sets; empty for other registers.
std::string RateRemark(const RegisterReading& reading);

/// The fields of a register: "enable=on word-length=24 ...".
std::string FieldsText(const RegisterReading& reading);

/// Why a register does not hold what it should, a line for each field: "main-control range:
/// expected 2.56V, found 20mV (0x8F, 0x88)".
std::vector<std::string> MismatchLines(const RegisterMismatch& mismatch);

/// What became of the registers where some did not verify: the fields that differ, a line each,
/// which registers were written and verified and which not, and whether the chip may be left in
/// power-down. Where the board does not answer any more, contents whose bits are all alike prove
/// nothing.
std::string RestoreReport(std::span<const RestoredRegister> restored, bool boardAnswers);

}  // namespace vx3260
