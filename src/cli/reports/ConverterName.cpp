// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/ConverterName.h"

namespace vx3260 {

std::string CommandLineName(Converter converter) {
    return converter == Converter::Main ? "main" : "aux";
}

}  // namespace vx3260
