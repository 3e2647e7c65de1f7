// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/ReportErrors.h"

#include <exception>

#include "numbers/FileErrors.h"

namespace vx3260 {

void ReportError(std::ostream& err, const std::string& place, const std::string& text) {
    err << ProgramName << ": " << place << (place.empty() ? "" : ": ") << text << std::endl;
}

ExitCode ReportErrors(const CliStreams& streams, const std::string& place,
                      const std::function<ExitCode()>& work) {
    const auto report = [&](const std::exception& error, ExitCode code) {
        ReportError(streams.err, place, error.what());
        return code;
    };
    try {
        return work();
    } catch (const CommandError& error) {
        return report(error, error.Code());
    } catch (const BadDataError& error) {
        return report(error, ExitCode::BadDataFile);
    } catch (const FileAccessError& error) {
        if (!streams.out && streams.readerHasGone != nullptr && streams.readerHasGone()) {
            return ExitCode::OutputClosed;
        }
        return report(error, ExitCode::FileNotAccessible);
    } catch (const std::exception& error) {
        return report(error, ExitCode::UnexpectedError);
    }
}

}  // namespace vx3260
