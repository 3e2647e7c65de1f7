#include "cli/NoiseCommand.h"

#include <algorithm>
#include <limits>
#include <span>
#include <vector>

#include "app/StartUp.h"
#include "cli/BlockReading.h"
#include "cli/NoiseReport.h"
#include "cli/RegisterText.h"
#include "cli/StopSignal.h"
#include "files/CodeFile.h"
#include "link/Serial.h"
#include "numbers/Conversions.h"
#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

constexpr const char* unipolarName = "unipolar";
constexpr const char* bipolarName = "bipolar";

/// Throws where the text is no number that single precision can hold.
float ToVolts(const std::string& text) {
    const double volts = TextToDouble(text);
    if (volts > std::numeric_limits<float>::max()) {
        throw OverflowError();
    }
    return static_cast<float>(volts);
}

std::string RefuseOtherThanVoltage(const std::string& text) {
    try {
        if (ToVolts(text) > 0) {
            return "";
        }
    } catch (const RuntimeError&) {
        // Refused below, like a number that is not positive.
    }
    return "'" + text + "' is no positive number of volts";
}

void CheckCount(std::int64_t count) {
    if (count < LeastCodesForAnalysis || count > MostCodesForAnalysis) {
        throw CommandError(ExitCode::CountRefused,
                           std::string(CountRefusal) + " (" + std::to_string(count) +
                               " given; accepted are " + std::to_string(LeastCodesForAnalysis) +
                               " to " + std::to_string(MostCodesForAnalysis) + ")");
    }
}

/// A reading that timed out ends with a value that is no result.
void CheckNoTimeout(std::span<const std::int32_t> codes, const std::string& file) {
    const auto timeout = std::find(codes.begin(), codes.end(), ReadTimeout);
    if (timeout != codes.end()) {
        throw BadDataError(file + ": line " + std::to_string(timeout - codes.begin() + 1) +
                           ": the time-out value " + std::to_string(ReadTimeout) +
                           " of a reading that failed, no code to analyse");
    }
}

NoiseAnalysis Analyse(std::span<const std::int32_t> codes, const ConversionConditions& conditions) {
    return AnalyseNoise(std::vector<double>(codes.begin(), codes.end()), conditions);
}

}  // namespace

NoiseCommand::NoiseCommand(CLI::App& program)
    : Command(program, "noise", "Noise figures of a data file, or of a block read now") {
    AddConverter(Parser(), converter_);
    CLI::Option* const file =
        Parser().add_option("FILE", file_, "Data file to analyse; without it, codes are read");
    CLI::Option* const range =
        Parser()
            .add_option("--range", rangeCode_, "Range code, 0 to 7, that FILE was read with")
            ->type_name("CODE")
            ->check(CLI::Range(0, 7))
            ->needs(file);
    CLI::Option* const polarity =
        Parser()
            .add_option("--polarity", polarity_, "Polarity that FILE was read with")
            ->check(CLI::IsMember({unipolarName, bipolarName}))
            ->needs(file);
    file->needs(range)->needs(polarity);
    AddHex(Parser(), notation_, "FILE is in hexadecimal")->needs(file);
    AddCount(Parser(), count_)->excludes(file);
    Parser()
        .add_option_function<std::string>(
            "--reference", [this](const std::string& text) { referenceVoltage_ = ToVolts(text); },
            "Reference voltage")
        ->type_name("VOLTS")
        ->default_str("2.5")
        ->check(CLI::Validator(RefuseOtherThanVoltage, ""));
    AddFormat(Parser(), format_);
}

ExitCode NoiseCommand::Run(const CommandContext& context) {
    return file_.empty() ? RunOnBoard(context) : RunOnFile(context);
}

NoiseAnalysis NoiseCommand::AnalyseFile(std::ostream& err) const {
    const std::vector<std::int32_t> codes = LoadCodes(file_, notation_);
    CheckCount(static_cast<std::int64_t>(codes.size()));
    CheckNoTimeout(codes, file_);
    WarnOfSuspiciousCodes(codes, converter_, err);
    const Polarity polarity = polarity_ == unipolarName ? Polarity::Unipolar : Polarity::Bipolar;
    try {
        return Analyse(codes, MainConditions(referenceVoltage_, rangeCode_, polarity));
    } catch (const RuntimeError& error) {
        throw BadDataError(file_ + ": the codes cannot be analysed: " + error.what());
    }
}

/// A file needs no board; start-up is left to those who ask for its status.
ExitCode NoiseCommand::RunOnFile(const CommandContext& context) const {
    if (StatusRequested(context.system)) {
        context.board.Open();
    }
    context.streams.out << Report(AnalyseFile(context.streams.err), "");
    return ExitCode::Success;
}

ExitCode NoiseCommand::RunOnBoard(const CommandContext& context) const {
    CheckCount(count_);
    Services& services = context.board.Services();
    EnsureContinuousConversion(services, context.streams.err);
    const auto control =
        static_cast<std::int16_t>(ReadRegister(services, RegisterMap::MainControl));
    const ConversionConditions conditions =
        ConditionsOf(Converter::Main, referenceVoltage_, control);
    const StopSignal stop;
    const BlockReading reading =
        ReadCodes(services, context.streams, converter_, static_cast<std::int16_t>(count_),
                  [&stop] { return stop.Requested(); });
    if (!CountFitsAnalysis(static_cast<std::int32_t>(reading.codes.size()))) {
        context.streams.err << "Too few codes to analyse" << std::endl;
        return ExitCodeOf(reading.end, stop.Requested());
    }
    WarnOfSuspiciousCodes(reading.codes, converter_, context.streams.err);
    context.streams.out << Report(Analyse(reading.codes, conditions), services.boardBadge);
    return ExitCodeOf(reading.end, stop.Requested());
}

std::string NoiseCommand::Report(const NoiseAnalysis& analysis, std::string_view board) const {
    return format_ == ReportFormat::Json ? NoiseJson(analysis, converter_, board)
                                         : NoiseText(analysis);
}

}  // namespace vx3260
