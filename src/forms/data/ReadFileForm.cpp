// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/ReadFileForm.h"

#include <algorithm>
#include <utility>

#include "analysis/BlockWarnings.h"
#include "analysis/ReadingTexts.h"
#include "files/CodeFile.h"
#include "files/ConditionsFile.h"
#include "numbers/NumberText.h"

namespace vx3260 {

ReadFileForm::ReadFileForm(Services& services, DataFileChoice* choice, QWidget* parent)
    : DataFileForm(services,
                   {.title = tr("VX3260 Evaluation Software - Read from File"),
                    .heading = tr("Read from File"),
                    .command = tr("&Read from File"),
                    .dialog = QFileDialog::AcceptOpen,
                    .failureDetail = "The block of codes stays as it was.",
                    .offersConditions = false},
                   choice, parent) {
    setObjectName(QStringLiteral("ReadFileForm"));
}

QString ReadFileForm::Process(const std::string& path) {
    const auto [codes, look, warning] = LoadCodes(path, ChosenNotation());
    std::vector<double> values = ToDoubles(codes);
    LoadedConditions beside = LoadConditions(path, ChosenConverter(), codes);
    const std::vector<BlockWarning> found = beside.conditions
                                                ? WarningsAbout(values, *beside.conditions)
                                                : WarningsAbout(values, ChosenConverter());
    bool suspicious = std::any_of(found.begin(), found.end(), [&values](const auto& one) {
        return Refuses(one, values.size());
    });
    std::vector<std::string> warnings = TextsOf(found);
    if (look && *look != ChosenNotation()) {
        warnings.insert(warnings.begin(), OtherNotationText(*look));
        suspicious = true;
    }
    if (suspicious && ChosenBlock().count > 0 && !ConfirmReplacement(warnings)) {
        return tr("Nothing was read.");
    }
    const CodeBlock block = ChosenBlock();
    block.codes = std::move(values);
    block.count = static_cast<std::int16_t>(codes.size());
    ChosenConditions() = std::move(beside.conditions);

    const auto [smallest, largest] = std::minmax_element(codes.begin(), codes.end());
    QString result =
        tr("Read %1 into the %2 ADC's block.\nSmallest %3, largest %4.")
            .arg(ChosenCount(), ChosenName(), QString::fromStdString(CodeText(*smallest)),
                 QString::fromStdString(CodeText(*largest)));
    for (const std::string& text : {beside.warning, warning}) {
        if (!text.empty()) {
            warnings.insert(warnings.begin(), text);
        }
    }
    result += QLatin1Char('\n') + QString::fromStdString(ReadingLines(ChosenConditions()).front());
    for (const std::string& text : warnings) {
        result += tr("\nWarning: %1").arg(QString::fromStdString(text));
    }
    return result;
}

/// Codes in the wrong notation must not replace a good block.
bool ReadFileForm::ConfirmReplacement(const std::vector<std::string>& warnings) {
    std::string text = "The codes of this file are suspicious:\r\n";
    for (const std::string& warning : warnings) {
        text += "\r\n" + warning;
    }
    return ShowMessage({.text = text + "\r\n\r\nReplace the block anyway ?",
                        .icon = MessageIcon::Exclamation,
                        .buttons = MessageButtons::YesNo}) == MessageAnswer::Yes;
}

}  // namespace vx3260

#include "moc_ReadFileForm.cpp"
