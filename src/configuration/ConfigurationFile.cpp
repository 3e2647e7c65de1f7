// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ConfigurationFile.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <vector>

#include "files/CodeFile.h"
#include "files/ScriptText.h"
#include "link/Assignment.h"
#include "link/RegisterLookup.h"

namespace vx3260 {
namespace {

using RegisterMap::Field;
using RegisterMap::RegisterDescription;

constexpr SizeLimit configurationLimit{std::size_t{1} << 20U, "that is not a configuration"};
constexpr std::string_view setCommand = "set";

std::string SetLine(const RegisterDescription& description, const Field& field, std::int32_t code) {
    return std::string(setCommand) + " " + std::string(description.name) + " " +
           std::string(field.name) + "=" + FieldValueText(field, code) + "\n";
}

/// The lines of one register, with its name for a person above them.
std::string SetLines(const RegisterSetting& setting) {
    const auto& [description, value, bits] = setting;
    const std::int32_t kept = bits & ComparableBits(description, value);
    const std::int32_t lasting = IsMode(description) ? LastingMode(value) : value;
    std::string text = "\n# " + std::string(description.title) + "\n";
    for (const Field& field : description.fields) {
        text += (field.mask & kept) == field.mask
                    ? SetLine(description, field, field.CodeIn(lasting))
                    : "# " + std::string(field.name) + " is the level of an input\n";
    }
    return text;
}

/// Parses the lines of a text one after the other.
class ConfigurationParser {
  public:
    explicit ConfigurationParser(std::string_view source) : source_(source) {
        for (const RegisterDescription& description : RegisterMap::ReadableRegisters) {
            if (description.access.writeByte != 0) {
                settings_.push_back({&description});
            }
        }
    }

    void Apply(const ScriptLine& line) {
        place_ = source_ + ":" + std::to_string(line.number);
        std::istringstream stream(line.text);
        const std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
        if (words.front() != setCommand || words.size() < 3) {
            Refuse("'" + Shortened(line.text) +
                   "' is not \"set REGISTER FIELD=VALUE\"; a configuration has no other lines");
        }
        Setting& setting = SettingNamed(words[1]);
        for (std::size_t i = 2; i < words.size(); ++i) {
            Assign(setting, words[i]);
        }
    }

    Configuration Result() {
        place_ = source_;
        Configuration configuration;
        for (const Setting& setting : settings_) {
            if (setting.bits == 0 && IsCoefficient(*setting.description)) {
                continue;
            }
            RequireFields(setting);
            configuration.push_back({*setting.description, setting.value, setting.bits});
        }
        return configuration;
    }

  private:
    struct Setting {
        const RegisterDescription* description;
        std::int32_t value = 0;
        std::int32_t bits = 0;  ///< those that were set
    };

    /// Keeps messages short for a file that is something else.
    static std::string Shortened(const std::string& text) {
        constexpr std::size_t maxLength = 60;
        return text.size() <= maxLength ? text : text.substr(0, maxLength) + "...";
    }

    [[noreturn]] void Refuse(const std::string& reason) const {
        throw BadDataError(place_ + ": " + reason);
    }

    Setting& SettingNamed(const std::string& name) {
        const auto found = std::ranges::find_if(settings_, [&name](const Setting& setting) {
            return setting.description->name == name;
        });
        if (found == settings_.end()) {
            std::string names;
            for (const Setting& setting : settings_) {
                names += (names.empty() ? "" : ", ") + std::string(setting.description->name);
            }
            Refuse("'" + Shortened(name) + "' is not one of the registers " + names);
        }
        return *found;
    }

    void Assign(Setting& setting, const std::string& text) const {
        try {
            const Assignment assignment = ParseAssignment(*setting.description, Shortened(text));
            setting.value = assignment.field.Insert(setting.value, assignment.code);
            setting.bits |= assignment.field.mask;
        } catch (const AssignmentError& error) {
            Refuse(error.what());
        }
        if (IsMode(*setting.description) && LastingMode(setting.value) != setting.value) {
            Refuse("the chip leaves the mode " +
                   RegisterMap::TextOfCode(RegisterMap::OperatingMode,
                                           RegisterMap::OperatingMode.CodeIn(setting.value)) +
                   " by itself; a configuration ends in power-down, idle or continuous");
        }
    }

    void RequireFields(const Setting& setting) const {
        const RegisterDescription& description = *setting.description;
        if (setting.bits == 0) {
            Refuse("the register " + std::string(description.name) + " is missing");
        }
        const std::int32_t required = ComparableBits(description, setting.value);
        for (const Field& field : description.fields) {
            if ((field.mask & required) != 0 && (field.mask & setting.bits) == 0) {
                Refuse("the field " + std::string(field.name) + " of the register " +
                       std::string(description.name) + " is missing");
            }
        }
    }

    std::string source_;
    std::string place_;
    std::vector<Setting> settings_;
};

}  // namespace

std::string ConfigurationText(const Configuration& configuration, const ConfigurationHead& head,
                              Coefficients coefficients) {
    std::string text;
    for (const std::string& line : HeadLines(head)) {
        text += "# " + line + "\n";
    }
    text +=
        "# \"vx3260-cli restore FILE\" writes this to the chip, \"vx3260-cli compare FILE\" shows "
        "what\n# differs, \"vx3260-cli script FILE\" runs it line by line.\n\n"
        "# The chip ignores some writes in other modes.\n" +
        SetLine(RegisterMap::DescriptionOf(RegisterMap::Mode), RegisterMap::OperatingMode,
                RegisterMap::PowerDown);
    for (const RegisterSetting& setting : InOrderOfWriting(configuration)) {
        if (coefficients == Coefficients::Include || !IsCoefficient(setting.description)) {
            text += SetLines(setting);
        }
    }
    ParseConfiguration(text, "the chip's settings cannot be saved");
    return text;
}

Configuration ParseConfiguration(std::string_view text, std::string_view source) {
    ConfigurationParser parser(source);
    for (const ScriptLine& line : ScriptLines(text, source)) {
        parser.Apply(line);
    }
    return parser.Result();
}

Configuration LoadConfiguration(const std::string& path) {
    return ParseConfiguration(LoadBytes(path, configurationLimit), path);
}

Configuration LoadConfigurationOfStandardInput() {
    return ParseConfiguration(LoadStandardInput(configurationLimit), "standard input");
}

}  // namespace vx3260
