// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/ReadFileForm.h"

#include <algorithm>

#include "analysis/SuspiciousCodes.h"
#include "files/CodeFile.h"
#include "numbers/NumberText.h"

namespace vx3260 {

ReadFileForm::ReadFileForm(Services& services, QWidget* parent)
    : DataFileForm(services,
                   {.title = tr("VX3260 Evaluation Software - Read from File"),
                    .command = tr("&Read from File"),
                    .dialog = QFileDialog::AcceptOpen,
                    .failureDetail = "The block of codes stays as it was."},
                   parent) {
    setObjectName(QStringLiteral("ReadFileForm"));
}

QString ReadFileForm::Process(const std::string& path) {
    const auto [codes, warning] = LoadCodes(path, ChosenNotation());
    const CodeBlock block = ChosenBlock();
    block.codes = ToDoubles(codes);
    block.count = static_cast<std::int16_t>(codes.size());

    const auto [smallest, largest] = std::minmax_element(codes.begin(), codes.end());
    QString result =
        tr("Read %1 into the %2 ADC's block.\nSmallest %3, largest %4.")
            .arg(ChosenCount(), ChosenName(), QString::fromStdString(CodeText(*smallest)),
                 QString::fromStdString(CodeText(*largest)));
    std::vector<std::string> warnings = SuspicionsAbout(codes, ChosenConverter());
    if (!warning.empty()) {
        warnings.insert(warnings.begin(), warning);
    }
    for (const std::string& text : warnings) {
        result += tr("\nWarning: %1").arg(QString::fromStdString(text));
    }
    return result;
}

}  // namespace vx3260

#include "moc_ReadFileForm.cpp"
