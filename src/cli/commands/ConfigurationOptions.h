// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "configuration/ConfigurationFile.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vx3260 {

/// Adds an argument that names a configuration file, or standard input as -.
CLI::Option* AddConfigurationFile(CLI::App& parser, const std::string& name, std::string& file,
                                  const std::string& description);

/// The configuration in such a file.
Configuration LoadNamedConfiguration(const std::string& file);

/// Adds --coefficients.
void AddCoefficients(CLI::App& parser, Coefficients& coefficients);

}  // namespace vx3260
