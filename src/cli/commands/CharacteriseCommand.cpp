// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/CharacteriseCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "acquisition/ProgressText.h"
#include "app/PortWords.h"
#include "characterisation/Report.h"
#include "characterisation/Sweep.h"
#include "characterisation/Tables.h"
#include "cli/board/BoardRegisters.h"
#include "cli/board/ProgressLine.h"
#include "cli/board/StopSignal.h"
#include "cli/board/StuckReadyLine.h"
#include "cli/reports/JsonText.h"
#include "files/CodeText.h"
#include "link/FilterRate.h"
#include "link/RegisterLookup.h"
#include "numbers/NumberText.h"
#include "options/Completion.h"
#include "options/Validators.h"

namespace vx3260 {
namespace {

constexpr const char* resumeHint = "--resume goes on with what is left";

constexpr std::string_view all = "all";

/// The code of a name; the command line is wrong where there is none.
std::int32_t CodeNamed(const RegisterMap::Field& field, const std::string& name,
                       const std::string& option) {
    std::string known;
    for (const RegisterMap::FieldValue& value : field.values) {
        if (value.name == name) {
            return value.code;
        }
        known += (known.empty() ? "" : ", ") + std::string(value.name);
    }
    throw CommandError(ExitCode::WrongCommandLine,
                       option + ": '" + name + "' is not one of " + known);
}

/// The names that a field of the named converter has.
std::vector<Candidate> NamesOf(const RegisterMap::Field& (*fieldOf)(Converter),
                               const std::string& converterName) {
    std::vector<Candidate> candidates;
    if (const std::optional<Converter> converter = ConverterNamed(converterName)) {
        for (const RegisterMap::FieldValue& value : fieldOf(*converter).values) {
            candidates.push_back({std::string(value.name)});
        }
    }
    return candidates;
}

std::vector<Candidate> RangeNameCandidates(const std::string& /*begun*/,
                                           const std::string& converterName) {
    std::vector<Candidate> candidates = NamesOf(ScaleField, converterName);
    candidates.push_back({std::string(all)});
    return candidates;
}

std::vector<Candidate> ChannelCandidates(const std::string& /*begun*/,
                                         const std::string& converterName) {
    return NamesOf(ChannelField, converterName);
}

std::vector<std::int32_t> CodesOf(Converter converter, const std::vector<std::string>& names) {
    const RegisterMap::Field& field = ScaleField(converter);
    std::vector<std::int32_t> codes;
    for (const std::string& name : names) {
        if (name != all) {
            AddOnce(codes, CodeNamed(field, name, "--ranges"));
            continue;
        }
        for (const RegisterMap::FieldValue& value : field.values) {
            AddOnce(codes, value.code);
        }
    }
    return codes;
}

CharacterisationResults SteadyBeginning(Services& services, CharacterisationPlan plan) {
    try {
        return BeginningOf(services, std::move(plan));
    } catch (const UnsteadyRegisters& error) {
        throw CommandError(ExitCode::ReadBackMismatch,
                           std::string(error.what()) + ". " + std::string(NothingWritten));
    }
}

/// ", 2:41 left"; empty where that is not known yet.
std::string LeftText(double part, std::chrono::steady_clock::time_point start) {
    const std::string left = TimeLeftText(part, std::chrono::steady_clock::now() - start);
    return left.empty() ? "" : ", " + left;
}

ExitCode ExitCodeFor(CharacterisationEnd end, bool restored,
                     const CharacterisationResults& results) {
    if (end == CharacterisationEnd::NoBoard) {
        return ExitCode::NoAnswer;
    }
    if (!restored) {
        return ExitCode::ReadBackMismatch;
    }
    if (end == CharacterisationEnd::Stopped) {
        return ExitCode::Interrupted;
    }
    const bool failed = std::any_of(results.rows.begin(), results.rows.end(),
                                    [](const auto& row) { return !row.failure.empty(); });
    return failed ? ExitCode::NoAnswer : ExitCode::Success;
}

}  // namespace

CharacteriseCommand::CharacteriseCommand(CLI::App& program)
    : Command(program, "characterise",
              "Measure the noise at every range and update rate, as data sheets tabulate it") {
    AddConverter(Parser(), converter_);
    AddSettings();
    AddMeasurement();
    AddOutput();
}

void CharacteriseCommand::AddSettings() {
    Parser()
        .add_option("--ranges", ranges_,
                    "Input ranges by their names, such as 20mV,2.56V, of the aux ADC half,full; "
                    "or all")
        ->type_name("NAME,...")
        ->delimiter(',')
        ->check(Offering(RangeNameCandidates))
        ->default_str(std::string(all));
    Parser()
        .add_option("--words", words_, "Filter words, 13 to 255")
        ->type_name("N,...")
        ->delimiter(',')
        ->check(CLI::Range(MinFilterWord, MaxFilterWord))
        ->default_str("13,69,255");
    AddWord(
        Parser(), "--polarity", {"bipolar", "unipolar", "both"}, "bipolar",
        [this](const std::string& name) {
            polarities_.clear();
            if (name != "unipolar") {
                polarities_.push_back(Polarity::Bipolar);
            }
            if (name != "bipolar") {
                polarities_.push_back(Polarity::Unipolar);
            }
        },
        "Polarity of the input range");
    Parser()
        .add_option("--channel", channel_, "Input channel; without it, the present one")
        ->type_name("NAME")
        ->check(Offering(ChannelCandidates));
}

void CharacteriseCommand::AddMeasurement() {
    AddWholeNumber(Parser(), "--count", count_, "Codes to read at each setting")
        ->check(
            CLI::Range(static_cast<int>(MinCodesForAnalysis), static_cast<int>(MaxCodesInBlock)));
    AddWholeNumber(Parser(), "--settle", settle_,
                   "Results to drop first; the default is enough for a filter of third order, with "
                   "one to spare")
        ->check(CLI::Range(0, MaxSettle));
    AddWord(
        Parser(), "--calibrate", {"internal", "none"}, "none",
        [this](const std::string& name) { calibrate_ = name == "internal"; },
        "Calibrate zero scale and full scale at each setting first");
    AddReference(Parser(), referenceVoltage_);
}

void CharacteriseCommand::AddOutput() {
    Parser()
        .add_option("-o,--output", output_, "Folder for the results; it is made where needed")
        ->type_name("FOLDER")
        ->check(FolderName())
        ->required();
    CLI::Option* const resume = Parser().add_flag(
        "--resume", resume_, "Go on where the characterisation in the folder stopped");
    Parser()
        .add_flag("--force", force_, "Replace the characterisation in the folder")
        ->excludes(resume);
    AddFormat(Parser(), format_, {ReportFormat::Csv, ReportFormat::Json});
}

CharacterisationPlan CharacteriseCommand::PlanFor(std::int32_t control) const {
    const RegisterMap::Field& channel = ChannelField(converter_);
    CharacterisationPlan plan{.converter = converter_,
                              .ranges = CodesOf(converter_, ranges_),
                              .polarities = polarities_,
                              .channel = channel_.empty()
                                             ? channel.CodeIn(control)
                                             : CodeNamed(channel, channel_, "--channel"),
                              .count = static_cast<std::int16_t>(count_),
                              .settle = static_cast<int>(settle_),
                              .calibrate = calibrate_,
                              .referenceVoltage = referenceVoltage_};
    for (const std::int32_t word : words_) {
        AddOnce(plan.filterWords, word);
    }
    return InOrder(std::move(plan));
}

ExitCode CharacteriseCommand::Run(const CommandContext& context) {
    PlanFor(0);  // a wrong name is refused before the board is opened
    Services& services = context.board.Services();
    const RegisterReading control = ReadAnswered(
        services, RegisterMap::DescriptionOf(TraitsOf(converter_).control), NothingWritten);
    CheckReadyLine(services);
    const FolderUse use = resume_  ? FolderUse::Resume
                          : force_ ? FolderUse::Replace
                                   : FolderUse::New;
    ResultsFolder folder(output_, SteadyBeginning(services, PlanFor(control.value)), use);
    const ExitCode exitCode = Measure(context, services, folder);
    WriteReport(folder.Results(), output_);
    context.streams.err << "Wrote " << PathIn(output_, ReportName) << std::endl;
    context.streams.out << Report(folder.Results());
    return exitCode;
}

ExitCode CharacteriseCommand::Measure(const CommandContext& context, Services& services,
                                      ResultsFolder& folder) {
    const CharacterisationPlan& plan = folder.Results().plan;
    const std::vector<CharacterisedSetting> settings = folder.Remaining();
    std::ostream& err = context.streams.err;
    if (settings.empty()) {
        err << "All settings have been measured" << std::endl;
        return ExitCode::Success;
    }
    for (const std::string& change : folder.Changed()) {
        err << "Since the characterisation was begun, " << change << std::endl;
    }
    err << "Measuring " << SweepText(plan, settings) << ", Ctrl+C stops" << std::endl;
    const StopSignal stop;
    bool restored = false;
    ProgressLine progress(err, 0, context.streams.errWidth);
    const auto start = std::chrono::steady_clock::now();
    std::size_t done = 0;
    std::string present;
    const auto say = [&](const std::string& text) {
        progress.Clear();
        err << text << std::endl;
    };
    const SweepHooks hooks{
        .starting =
            [&](const CharacterisedSetting& setting) {
                present = SettingText(plan.converter, setting);
            },
        .afterEach =
            [&](const SweepProgress& now) {
                progress.Show(now.part, [&] {
                    return std::to_string(done) + " of " +
                           CountText(static_cast<std::int64_t>(settings.size()), "setting") + ", " +
                           present + ": " + std::to_string(now.codes) + " of " +
                           std::to_string(plan.count) + LeftText(now.part, start);
                });
            },
        .finished =
            [&](const CharacterisedBlock& block) {
                ++done;
                say(SettingText(plan.converter, block.setting) + ": " +
                    RowText(folder.Results().rows.back()));
                for (const std::string& warning : TextsOf(block.warnings)) {
                    say("Warning: " + warning);
                }
            },
        .stopRequested = [&stop] { return stop.Requested(); },
        .restored =
            [&](const std::vector<RegisterMismatch>& mismatches) {
                restored = mismatches.empty();
                progress.Clear();
                for (const std::string& line : RestoredLines(mismatches)) {
                    err << line << std::endl;
                }
            }};
    const CharacterisationEnd end = [&] {
        try {
            return MeasureRemaining(services, folder, hooks);
        } catch (const FileAccessError&) {
            err << "Settings that were finished are in the folder; " << resumeHint << std::endl;
            throw;
        }
    }();
    if (end == CharacterisationEnd::NoBoard) {
        err << InPortWords(
                   "The board does not answer any more. Check the {cable} and the board's power; ",
                   services.port)
            << resumeHint << std::endl;
    } else if (end == CharacterisationEnd::Stopped) {
        err << "Stopped; " << resumeHint << std::endl;
    }
    return ExitCodeFor(end, restored, folder.Results());
}

std::string CharacteriseCommand::Report(const CharacterisationResults& results) const {
    switch (format_) {
        case ReportFormat::Csv:
            return TableCsv(results);
        case ReportFormat::Json:
            return JsonText(ResultsObject(results));
        default:
            return TablesText(results);
    }
}

}  // namespace vx3260
