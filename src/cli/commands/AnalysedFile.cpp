// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/AnalysedFile.h"

#include <CLI/CLI.hpp>
#include <map>

#include "cli/commands/Command.h"
#include "link/RegisterFields.h"

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

}  // namespace

double KnownRate(const FileBlock& block) {
    if (!block.rate) {
        throw CommandError(ExitCode::WrongCommandLine,
                           "FILE requires --rate: how many readings there were in a second is "
                           "unknown");
    }
    return *block.rate;
}

CLI::Option* AnalysedFile::AddTo(CLI::App& parser, const std::string& description) {
    CLI::Option* const file = AddFile(parser, file_, description);
    AddScale(parser, file);
    file->needs(AddField(parser, "--polarity", RegisterMap::Polarity, control_,
                         "Polarity that FILE was read with")
                    ->needs(file));
    AddFileOptions(parser, file_, file);
    return file;
}

/// The options for what FILE was read with: the range of the main ADC, the full scale of the aux
/// ADC. FILE needs the one of its converter.
void AnalysedFile::AddScale(CLI::App& parser, CLI::Option* file) {
    const CLI::Option* const range = AddRange(parser)->needs(file);
    const CLI::Option* const fullScale =
        AddField(parser, fullScaleOption, RegisterMap::Reference, control_,
                 "Full scale, half or full REFIN2, that FILE was read with from the aux ADC")
            ->check(OnlyFor(Converter::Aux, converter_, rangeOption))
            ->needs(file);
    parser.final_callback([this, range, fullScale] {
        const CLI::Option* const scale = converter_ == Converter::Main ? range : fullScale;
        if (IsGiven() && scale->empty()) {
            throw CLI::RequiresError("FILE", scale->get_name());
        }
    });
}

CLI::Option* AnalysedFile::AddRange(CLI::App& parser) {
    return parser
        .add_option_function<int>(
            rangeOption,
            [this](int code) { control_ = RegisterMap::InputRange.Insert(control_, code); },
            "Range code, 0 to 7, that FILE was read with from the main ADC")
        ->type_name("CODE")
        ->check(CLI::Range(0, 7))
        ->check(OnlyFor(Converter::Main, converter_, fullScaleOption));
}

void AnalysedFile::AddReferenceTo(CLI::App& parser) {
    AddReference(parser, referenceVoltage_);
}

void AnalysedFile::AddRateTo(CLI::App& parser) {
    AddRate(parser, rate_);
}

FileBlock AnalysedFile::Load(std::ostream& err,
                             const std::function<void(std::size_t count)>& checkCount) const {
    ParsedCodes block = LoadBlock(file_, err);
    if (checkCount) {
        checkCount(block.codes.size());
    }
    CheckSuspicions(file_, block, converter_, err);
    return {std::move(block.codes), ConditionsOf(converter_, referenceVoltage_, control_), rate_};
}

}  // namespace vx3260
