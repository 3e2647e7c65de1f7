// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/ConfigurationOptions.h"

#include <CLI/CLI.hpp>

#include "options/Validators.h"

namespace vx3260 {

CLI::Option* AddConfigurationFile(CLI::App& parser, const std::string& name, std::string& file,
                                  const std::string& description) {
    return parser.add_option(name, file, description)->check(FileName());
}

Configuration LoadNamedConfiguration(const std::string& file) {
    return file == "-" ? LoadConfigurationOfStandardInput() : LoadConfiguration(file);
}

void AddCoefficients(CLI::App& parser, Coefficients& coefficients) {
    parser.add_flag_callback(
        "--coefficients", [&coefficients] { coefficients = Coefficients::Include; },
        "With the calibration coefficients");
}

}  // namespace vx3260
