// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "analysis/Spectrum.h"
#include "cli/commands/AnalysedFile.h"
#include "cli/commands/Command.h"

namespace vx3260 {

/// spectrum: the noise density of a data file over frequency.
class SpectrumCommand final : public Command {
  public:
    explicit SpectrumCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string Report(std::ostream& err) const;
    std::size_t SegmentFor(std::size_t readings) const;

    Converter converter_ = Converter::Main;
    AnalysedFile file_{converter_};
    std::int64_t segment_ = 0;  ///< 0: DefaultSegmentLength
    Trend trend_ = Trend::Mean;
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
