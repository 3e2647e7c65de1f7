// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/AnalysedFile.h"

#include <CLI/CLI.hpp>
#include <map>
#include <utility>

#include "analysis/Rate.h"
#include "analysis/ReadingTexts.h"
#include "cli/board/BlockReading.h"
#include "cli/commands/Command.h"
#include "files/CodeFile.h"
#include "files/ConditionsFile.h"
#include "options/Completion.h"

namespace vx3260 {
namespace {

constexpr const char* rangeOption = "--range";
constexpr const char* fullScaleOption = "--full-scale";
constexpr const char* polarityOption = "--polarity";

std::vector<Candidate> RangeCandidates(const std::string& /*begun*/, const std::string& /*first*/) {
    std::vector<Candidate> candidates;
    for (const RegisterMap::FieldValue& range : RegisterMap::InputRange.values) {
        candidates.push_back({std::to_string(range.code), std::string(range.name)});
    }
    return candidates;
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

}  // namespace

double KnownRate(const FileBlock& block) {
    if (!block.rate || !IsRate(*block.rate)) {
        throw CommandError(ExitCode::WrongCommandLine,
                           "FILE requires --rate: how many readings there were in a second is "
                           "unknown");
    }
    return *block.rate;
}

CLI::Option* AnalysedFile::AddTo(CLI::App& parser, const std::string& description) {
    CLI::Option* const file = AddFile(parser, file_, description);
    AddRange(parser)->needs(file);
    AddField(parser, fullScaleOption, RegisterMap::Reference,
             "Full scale, half or full REFIN2, that FILE was read with from the aux ADC")
        ->check(OnlyFor(Converter::Aux, converter_, rangeOption))
        ->needs(file);
    AddField(parser, polarityOption, RegisterMap::Polarity, "Polarity that FILE was read with")
        ->needs(file);
    AddFileOptions(parser, file_, file);
    return file;
}

/// Adds an option that gives one of a field's values by name.
CLI::Option* AnalysedFile::AddField(CLI::App& parser, const std::string& option,
                                    const RegisterMap::Field& field,
                                    const std::string& description) {
    std::map<std::string, std::int32_t> codes;
    for (const RegisterMap::FieldValue& named : field.values) {
        codes.emplace(named.name, named.code);
    }
    return parser
        .add_option_function<std::string>(
            option, [this, &field, codes](const std::string& name) { Give(field, codes.at(name)); },
            description)
        ->check(CLI::IsMember(codes));
}

CLI::Option* AnalysedFile::AddRange(CLI::App& parser) {
    return parser
        .add_option_function<int>(
            rangeOption, [this](int code) { Give(RegisterMap::InputRange, code); },
            "Range code, 0 to 7, that FILE was read with from the main ADC")
        ->type_name("CODE")
        ->check(CLI::Range(0, 7))
        ->check(Offering(RangeCandidates))
        ->check(OnlyFor(Converter::Main, converter_, fullScaleOption));
}

void AnalysedFile::Give(const RegisterMap::Field& field, std::int32_t code) {
    control_ = field.Insert(control_, code);
    givenMask_ |= field.mask;
}

void AnalysedFile::AddReferenceTo(CLI::App& parser) {
    referenceOption_ = AddReference(parser, referenceVoltage_);
}

void AnalysedFile::AddRateTo(CLI::App& parser) {
    AddRate(parser, rate_);
}

/// Without conditions the options must say what the codes are in volts.
void AnalysedFile::RequireScale() const {
    const bool main = converter_ == Converter::Main;
    const std::pair<std::int32_t, const char*> needed[] = {
        {main ? RegisterMap::InputRange.mask : RegisterMap::Reference.mask,
         main ? rangeOption : fullScaleOption},
        {RegisterMap::Polarity.mask, polarityOption}};
    for (const auto& [mask, option] : needed) {
        if ((givenMask_ & mask) == 0) {
            throw CommandError(ExitCode::WrongCommandLine,
                               "FILE requires " + std::string(option) +
                                   ": the conditions of its reading are unknown");
        }
    }
}

FileBlock AnalysedFile::Load(std::ostream& err,
                             const std::function<void(std::size_t count)>& checkCount) const {
    const bool alone = !file_.IsRegular() || !FileExists(ConditionsPath(file_.path));
    if (alone) {
        RequireScale();
    }
    ParsedCodes block = LoadBlock(file_, err);
    if (checkCount) {
        checkCount(block.codes.size());
    }
    std::optional<BlockConditions> reading = LoadConditionsOf(file_, converter_, block, err);
    const std::optional<ConversionConditions> own = reading ? ConditionsOf(*reading) : std::nullopt;
    if (!own) {
        RequireScale();
    }
    const ConversionConditions conversion =
        ConditionsOf(converter_, ReferenceBeside(reading), ControlBeside(reading));
    if (const std::string text = own ? ChangeByOptions(*own, conversion) : ""; !text.empty()) {
        PrintWarnings({text}, err);
    }
    std::vector<BlockWarning> warnings =
        CheckWarnings(file_, block, converter_, err,
                      {.codeStep = conversion.codeStep,
                       .missed = reading ? reading->missedConversions.value_or(0) : 0});
    std::optional<double> rate = rate_;
    if (!rate && reading && reading->Interval()) {
        rate = 1 / *reading->Interval();
    }
    return {.codes = std::move(block.codes),
            .conditions = conversion,
            .warnings = std::move(warnings),
            .reading = std::move(reading),
            .rate = rate};
}

/// Options come first.
std::int32_t AnalysedFile::ControlBeside(const std::optional<BlockConditions>& conditions) const {
    const std::int32_t read = conditions ? conditions->Control().value_or(0) : 0;
    return (read & ~givenMask_) | control_;
}

float AnalysedFile::ReferenceBeside(const std::optional<BlockConditions>& conditions) const {
    return conditions && referenceOption_->empty()
               ? conditions->referenceVoltage.value_or(referenceVoltage_)
               : referenceVoltage_;
}

}  // namespace vx3260
