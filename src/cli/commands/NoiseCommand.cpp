// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/NoiseCommand.h"

#include <CLI/CLI.hpp>
#include <map>
#include <span>
#include <vector>

#include "analysis/BlockWarnings.h"
#include "app/MessageTexts.h"
#include "cli/board/BlockReading.h"
#include "cli/board/StopSignal.h"
#include "cli/commands/BlockFile.h"
#include "cli/reports/NoiseReport.h"
#include "link/CodeBlock.h"
#include "link/RegisterFields.h"
#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

constexpr const char* rangeOption = "--range";
constexpr const char* fullScaleOption = "--full-scale";

/// Adds an option that puts one of a field's values, by name, into the value of a register.
CLI::Option* AddField(CLI::App& parser, const std::string& option, const RegisterMap::Field& field,
                      std::int32_t& value, const std::string& description) {
    std::map<std::string, std::int32_t> codes;
    for (const RegisterMap::FieldValue& named : field.values) {
        codes.emplace(named.name, named.code);
    }
    return parser
        .add_option_function<std::string>(
            option,
            [&field, &value, codes](const std::string& name) {
                value = field.Insert(value, codes.at(name));
            },
            description)
        ->check(CLI::IsMember(codes));
}

/// Refuses an option for the converter that has another option in its place.
CLI::Validator OnlyFor(Converter converter, const Converter& chosen,
                       const std::string& otherOption) {
    const auto refusal = [converter, &chosen, otherOption](const std::string& /*value*/) {
        return chosen == converter ? ""
                                   : "the " + std::string(TraitsOf(chosen).name) + " ADC takes " +
                                         otherOption + " in its place";
    };
    return {refusal, ""};
}

void CheckCount(std::int64_t count) {
    if (!CountFitsAnalysis(count)) {
        throw CommandError(ExitCode::CountRefused,
                           std::string(MessageTexts::CountRefusal) + " (" + std::to_string(count) +
                               " given; accepted are " + std::to_string(MinCodesForAnalysis) +
                               " to " + std::to_string(MaxCodesForAnalysis) + ")");
    }
}

NoiseAnalysis Analyse(std::span<const std::int32_t> codes, const ConversionConditions& conditions) {
    return AnalyseNoise(ToDoubles(codes), conditions);
}

}  // namespace

NoiseCommand::NoiseCommand(CLI::App& program)
    : Command(program, "noise", "Noise figures of a data file, or of a block read now") {
    AddConverter(Parser(), converter_);
    CLI::Option* const file = AddFileWithConditions();
    AddCount(Parser(), count_)->excludes(file);
    AddReference(Parser(), referenceVoltage_);
    AddFormat(Parser(), format_, {ReportFormat::Json});
}

/// FILE and the options that describe it. The converter, an option before these, is known when they
/// are checked.
CLI::Option* NoiseCommand::AddFileWithConditions() {
    CLI::Option* const file =
        AddFile(Parser(), file_,
                "Data file to analyse, or - for standard input; without it, codes are read");
    AddScale(file);
    file->needs(AddField(Parser(), "--polarity", RegisterMap::Polarity, fileControl_,
                         "Polarity that FILE was read with")
                    ->needs(file));
    AddFileOptions(Parser(), file_, file);
    return file;
}

/// The options for what FILE was read with: the range of the main ADC, the full scale of the aux
/// ADC. FILE needs the one of its converter.
void NoiseCommand::AddScale(CLI::Option* file) {
    const CLI::Option* const range = AddRange()->needs(file);
    const CLI::Option* const fullScale =
        AddField(Parser(), fullScaleOption, RegisterMap::Reference, fileControl_,
                 "Full scale, half or full REFIN2, that FILE was read with from the aux ADC")
            ->check(OnlyFor(Converter::Aux, converter_, rangeOption))
            ->needs(file);
    Parser().final_callback([this, range, fullScale] {
        const CLI::Option* const scale = converter_ == Converter::Main ? range : fullScale;
        if (!file_.path.empty() && scale->empty()) {
            throw CLI::RequiresError("FILE", scale->get_name());
        }
    });
}

CLI::Option* NoiseCommand::AddRange() {
    return Parser()
        .add_option_function<int>(
            rangeOption,
            [this](int code) { fileControl_ = RegisterMap::InputRange.Insert(fileControl_, code); },
            "Range code, 0 to 7, that FILE was read with from the main ADC")
        ->type_name("CODE")
        ->check(CLI::Range(0, 7))
        ->check(OnlyFor(Converter::Main, converter_, fullScaleOption));
}

ExitCode NoiseCommand::Run(const CommandContext& context) {
    if (file_.path.empty()) {
        return RunOnBoard(context);
    }
    return RunOnFile(context, file_, [this, &context] { ReportFile(context.streams); });
}

void NoiseCommand::ReportFile(const CliStreams& streams) const {
    const ParsedCodes block = LoadBlock(file_, streams.err);
    CheckCount(static_cast<std::int64_t>(block.codes.size()));
    const ConversionConditions conditions =
        ConditionsOf(converter_, referenceVoltage_, fileControl_);
    const std::vector<BlockWarning> warnings =
        CheckWarnings(file_, block, converter_, streams.err, {.codeStep = conditions.codeStep});
    try {
        streams.out << Report(Analyse(block.codes, conditions), warnings, "");
    } catch (const RuntimeError& error) {
        throw BadDataError(file_.Name() + ": the codes cannot be analysed: " + error.what());
    }
}

ExitCode NoiseCommand::RunOnBoard(const CommandContext& context) const {
    CheckCount(count_);
    Services& services = context.board.Services();
    EnsureContinuousConversion(services, context.streams.err);
    const ConversionConditions conditions = ReadConditions(services, converter_, referenceVoltage_);
    const StopSignal stop;
    const BlockReading reading =
        ReadCodes(services, context.streams, converter_, static_cast<std::int16_t>(count_),
                  [&stop] { return stop.Requested(); });
    if (!CountFitsAnalysis(static_cast<std::int64_t>(reading.codes.size()))) {
        context.streams.err << "Too few codes to analyse" << std::endl;
        return ExitCodeOf(reading.end, stop.Requested());
    }
    const std::vector<BlockWarning> warnings =
        WarningsAbout(ToDoubles(reading.codes), converter_, {.codeStep = conditions.codeStep});
    PrintWarnings(TextsOf(warnings), context.streams.err);
    context.streams.out << Report(Analyse(reading.codes, conditions), warnings,
                                  services.boardLabel);
    return ExitCodeOf(reading.end, stop.Requested());
}

std::string NoiseCommand::Report(const NoiseAnalysis& analysis,
                                 std::span<const BlockWarning> warnings,
                                 std::string_view board) const {
    return format_ == ReportFormat::Json ? NoiseJson(analysis, warnings, board)
                                         : NoiseText(analysis);
}

}  // namespace vx3260
