// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/FirmwareExport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <sstream>

#include "files/JsonFields.h"
#include "files/RegisterJson.h"
#include "link/RegisterLookup.h"
#include "numbers/FileErrors.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr int byteDigits = 2;

/// One write to a register, and what it does.
struct Write {
    RegisterReading contents;
    std::string meaning;
};

std::vector<Write> WritesOf(const Configuration& configuration, Coefficients coefficients) {
    const RegisterReading powerDown{RegisterMap::DescriptionOf(RegisterMap::Mode),
                                    RegisterMap::PowerDown};
    std::vector<Write> writes{{powerDown, "power-down, while the others are written"}};
    for (const RegisterSetting& setting : InOrderOfWriting(configuration)) {
        if (coefficients == Coefficients::LeaveOut && IsCoefficient(setting.description)) {
            continue;
        }
        const bool mode = IsMode(setting.description);
        const std::int32_t value =
            setting.value & setting.bits & ComparableBits(setting.description, setting.value);
        const RegisterReading contents{setting.description, mode ? LastingMode(value) : value};
        writes.push_back({contents, FieldsText(contents)});
    }
    return writes;
}

std::string AddressHex(const RegisterReading& contents) {
    return PrefixedHex(RegisterMap::AddressIn(contents.description.access.writeByte), byteDigits);
}

std::string ValueHex(const RegisterReading& contents) {
    return RegisterMap::RegisterHex(contents.value, contents.description.access);
}

/// Neither begins nor ends a comment.
std::string CommentText(std::string text) {
    for (const std::string_view mark : {"*/", "/*"}) {
        for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark)) {
            text.insert(at + 1, " ");
        }
    }
    return text;
}

/// A comment above an entry, in lines of the width that sources have.
std::string EntryComment(const Write& write) {
    constexpr std::size_t width = 90;
    constexpr std::string_view indent = "     ";
    std::string line = "    /* " + std::string(write.contents.description.name) + ":";
    std::string text;
    std::istringstream words(CommentText(write.meaning));
    for (std::string word; words >> word;) {
        if (line.size() + 1 + word.size() > width) {
            text += line + "\n";
            line = indent;
        }
        line += " " + word;
    }
    return text + line + " */\n";
}

std::string ExportC(const std::vector<Write>& writes, const ConfigurationHead& head) {
    std::string text = "/*\n";
    for (const std::string& line : HeadLines(head)) {
        text += " * " + CommentText(line) + "\n";
    }
    text +=
        " *\n"
        " * Write the entries in this order. A write is the communications byte, which is the\n"
        " * address, and then the value with its most significant bit first, width bits of it.\n"
        " * The chip ignores writes to the filter and to coefficients except in power-down, so "
        "the\n"
        " * first entry sets that mode and the last one sets the operating mode. Read each "
        "register\n"
        " * back (communications byte: 0x40 + address) and compare; bits of input pins may "
        "differ.\n"
        " */\n"
        "#ifndef VX3260_CONFIGURATION_H\n"
        "#define VX3260_CONFIGURATION_H\n"
        "\n"
        "#include <stdint.h>\n"
        "\n"
        "struct vx3260_write {\n"
        "    uint8_t address;\n"
        "    uint8_t width; /* bits */\n"
        "    uint32_t value;\n"
        "};\n"
        "\n"
        "static const struct vx3260_write vx3260_configuration[] = {\n";
    for (const Write& write : writes) {
        const RegisterMap::RegisterDescription& description = write.contents.description;
        text += EntryComment(write) + "    {" + AddressHex(write.contents) + ", " +
                std::to_string(description.access.wordLength) + ", " + ValueHex(write.contents) +
                "},\n";
    }
    return text +
           "};\n"
           "\n"
           "#define VX3260_CONFIGURATION_COUNT " +
           std::to_string(writes.size()) + "\n\n#endif\n";
}

std::string ExportJson(const std::vector<Write>& writes, const ConfigurationHead& head) {
    QJsonArray array;
    for (const Write& write : writes) {
        const RegisterMap::RegisterAccess& access = write.contents.description.access;
        QJsonObject object = RegisterObject(write.contents);
        object["register"] = QString::fromUtf8(write.contents.description.name);
        object["address"] = RegisterMap::AddressIn(access.writeByte);
        object["width"] = access.wordLength;
        array.append(object);
    }
    using Member = std::pair<QString, QJsonValue>;
    const Member source = head.file.empty() ? Member{"board", BoardObject(head.board)}
                                            : Member{"file", QString::fromStdString(head.file)};
    const QJsonObject document{source,
                               {"program", QString::fromStdString(head.program)},
                               {"time", TimeValue(head.time)},
                               {"writes", array}};
    return QJsonDocument(document).toJson().toStdString();
}

std::string ExportCsv(const std::vector<Write>& writes) {
    std::string text = "order,register,address,width,value,fields\n";
    int order = 0;
    for (const Write& write : writes) {
        text += std::to_string(++order) + "," + std::string(write.contents.description.name) + "," +
                AddressHex(write.contents) + "," +
                std::to_string(write.contents.description.access.wordLength) + "," +
                ValueHex(write.contents) + "," + FieldsText(write.contents) + "\n";
    }
    return text;
}

}  // namespace

std::string ExportText(const Configuration& configuration, const ConfigurationHead& head,
                       Coefficients coefficients, ExportFormat format) {
    const bool hasCoefficients = std::ranges::any_of(
        configuration, [](const auto& setting) { return IsCoefficient(setting.description); });
    if (coefficients == Coefficients::Include && !hasCoefficients) {
        throw BadDataError("the configuration was saved without calibration coefficients");
    }
    const std::vector<Write> writes = WritesOf(configuration, coefficients);
    switch (format) {
        case ExportFormat::Json:
            return ExportJson(writes, head);
        case ExportFormat::Csv:
            return ExportCsv(writes);
        default:
            return ExportC(writes, head);
    }
}

}  // namespace vx3260
