// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/WriteFileForm.h"

#include <QDir>
#include <QFileInfo>

#include "files/CodeFile.h"
#include "files/ConditionsFile.h"

namespace vx3260 {
namespace {

QString NativePath(const std::string& path) {
    return QDir::toNativeSeparators(QFileInfo(QString::fromStdString(path)).absoluteFilePath());
}

}  // namespace

WriteFileForm::WriteFileForm(Services& services, DataFileChoice* choice, QWidget* parent)
    : DataFileForm(services,
                   {.title = tr("VX3260 Evaluation Software - Write to File"),
                    .heading = tr("Write to File"),
                    .command = tr("&Write to File"),
                    .dialog = QFileDialog::AcceptSave,
                    .failureDetail = "Nothing was written. A file that was there stays as it was.",
                    .offersConditions = true},
                   choice, parent) {
    setObjectName(QStringLiteral("WriteFileForm"));
}

QString WriteFileForm::Process(const std::string& path) {
    const CodeBlock block = ChosenBlock();
    if (block.count == 0) {
        throw FileAccessError("The " + ChosenName().toStdString() +
                              " ADC's block is empty: read codes first, from the board or from a "
                              "file");
    }
    const std::string conditionsPath = ConditionsPath(path);
    const bool withConditions = ConditionsWanted();
    std::vector<std::string> files{path};
    if (withConditions) {
        files.push_back(conditionsPath);
    }
    if (!MayReplace(files)) {
        return tr("Nothing was written.");
    }
    const std::vector<std::int32_t> codes = ToIntegers(block.Codes());
    ReplaceFile(path, FormatCodes(codes, ChosenNotation()));
    QString result =
        tr("Wrote %1 of the %2 ADC to %3.").arg(ChosenCount(), ChosenName(), NativePath(path));
    if (withConditions) {
        result += tr("\n%1").arg(SaveConditions(conditionsPath, codes));
    }
    return result;
}

/// Asks once for all files that exist.
bool WriteFileForm::MayReplace(const std::vector<std::string>& files) {
    std::string existing;
    for (const std::string& file : files) {
        if (FileExists(file)) {
            existing += (existing.empty() ? "" : "\r\nand ") + file;
        }
    }
    const bool several = existing.find('\n') != std::string::npos;
    return existing.empty() ||
           ShowMessage({.text = existing + (several ? " exist already.\r\nReplace them ?"
                                                    : " exists already.\r\nReplace it ?"),
                        .icon = MessageIcon::Exclamation,
                        .buttons = MessageButtons::YesNo}) == MessageAnswer::Yes;
}

/// The codes are saved; without their conditions they are still good.
QString WriteFileForm::SaveConditions(const std::string& path,
                                      std::span<const std::int32_t> codes) {
    try {
        ReplaceFile(path, FormatConditions(*ChosenConditions(), codes));
        return tr("Wrote the conditions of the reading to %1.").arg(NativePath(path));
    } catch (const FileAccessError& error) {
        return tr("Warning: the conditions of the reading were not written: %1")
            .arg(QString::fromUtf8(error.what()));
    }
}

}  // namespace vx3260

#include "moc_WriteFileForm.cpp"
