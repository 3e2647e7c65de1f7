// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/WriteFileForm.h"

#include <QFileInfo>

#include "files/CodeFile.h"

namespace vx3260 {

WriteFileForm::WriteFileForm(Services& services, DataFileChoice* choice, QWidget* parent)
    : DataFileForm(services,
                   {.title = tr("VX3260 Evaluation Software - Write to File"),
                    .heading = tr("Write to File"),
                    .command = tr("&Write to File"),
                    .dialog = QFileDialog::AcceptSave,
                    .failureDetail = "Nothing was written. A file that was there stays as it was."},
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
    const QFileInfo file(QString::fromStdString(path));
    if (file.exists()) {
        const MessageAnswer answer = ShowMessage({.text = path + " exists already.\r\nReplace it ?",
                                                  .icon = MessageIcon::Exclamation,
                                                  .buttons = MessageButtons::YesNo});
        if (answer != MessageAnswer::Yes) {
            return tr("Nothing was written.");
        }
    }
    ReplaceFile(path, FormatCodes(ToIntegers(block.Codes()), ChosenNotation()));
    return tr("Wrote %1 of the %2 ADC to %3.")
        .arg(ChosenCount(), ChosenName(), QDir::toNativeSeparators(file.absoluteFilePath()));
}

}  // namespace vx3260

#include "moc_WriteFileForm.cpp"
