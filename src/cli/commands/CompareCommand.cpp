// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/CompareCommand.h"

#include <CLI/CLI.hpp>
#include <ostream>

#include "cli/board/BoardConfiguration.h"
#include "cli/commands/ConfigurationOptions.h"
#include "cli/reports/DifferencesReport.h"
#include "numbers/FilePath.h"

namespace vx3260 {
namespace {

/// The heading of a column: the name without the folder.
std::string ColumnName(const std::string& file) {
    const std::u8string utf8 = FilePath(file).filename().u8string();
    const std::string name(utf8.begin(), utf8.end());
    return name.empty() ? file : name;
}

}  // namespace

CompareCommand::CompareCommand(CLI::App& program)
    : Command(
          program, "compare",
          "List the fields in which a saved configuration differs from the chip or from another "
          "one") {
    AddConfigurationFile(Parser(), "FILE", file_,
                         "File that save has written, or - for standard input")
        ->required();
    AddConfigurationFile(Parser(), "OTHER", otherFile_,
                         "Another such file; without it, the chip is compared");
    AddFormat(Parser(), format_, {ReportFormat::Json});
    Parser().footer(
        "Coefficients are compared where both sides have them, levels of input pins never. Exit "
        "code 10: something differs.");
}

ExitCode CompareCommand::Run(const CommandContext& context) {
    if (file_ == "-" && otherFile_ == "-") {
        throw CommandError(ExitCode::WrongCommandLine,
                           "only one of the two files can be standard input");
    }
    const Configuration left = LoadNamedConfiguration(file_);
    const bool withChip = otherFile_.empty();
    const Configuration right =
        withChip ? ReadAnsweredConfiguration(context.board.Services(), "Nothing was compared. ")
                 : LoadNamedConfiguration(otherFile_);
    const std::string rightName = withChip ? "chip" : otherFile_;
    const std::vector<FieldDifference> differences = DifferencesBetween(left, right);
    context.streams.out << (format_ == ReportFormat::Json
                                ? DifferencesJson(differences, file_, rightName)
                                : DifferencesText(differences, ColumnName(file_),
                                                  ColumnName(rightName)));
    if (differences.empty()) {
        context.streams.err << "Nothing differs" << std::endl;
    }
    return differences.empty() ? ExitCode::Success : ExitCode::Different;
}

}  // namespace vx3260
