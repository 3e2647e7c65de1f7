// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/SaveDialog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>

#include "ui/NoSettingsFile.h"

namespace vx3260 {

FileKind PdfFile() {
    return {QCoreApplication::translate("SaveDialog", "PDF Document (*.pdf)"),
            QStringLiteral("pdf")};
}

QString ChosenFile::SuffixAmong(const std::vector<FileKind>& kinds) const {
    const QString typed = QFileInfo(path).suffix().toLower();
    const bool known = std::any_of(kinds.begin(), kinds.end(),
                                   [&typed](const FileKind& kind) { return kind.suffix == typed; });
    return known ? typed : suffix;
}

std::string ChosenFile::NativePath() const {
    return QDir::toNativeSeparators(path).toStdString();
}

ChosenFile AskForFile(QWidget* parent, const QString& name, const std::vector<FileKind>& kinds,
                      ExistingFile existing) {
    const FileDialog dialog(new QFileDialog(parent));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setOption(QFileDialog::DontConfirmOverwrite, existing == ExistingFile::Accept);
    QStringList filters;
    for (const FileKind& kind : kinds) {
        filters.append(kind.filter);
    }
    dialog->setNameFilters(filters);
    dialog->setDefaultSuffix(kinds.front().suffix);
    QObject::connect(dialog.get(), &QFileDialog::filterSelected, dialog.get(),
                     [&](const QString& filter) {
                         dialog->setDefaultSuffix(
                             kinds.at(static_cast<std::size_t>(filters.indexOf(filter))).suffix);
                     });
    dialog->selectFile(name);
    if (dialog->exec() != QDialog::Accepted) {
        return {};
    }
    return {dialog->selectedFiles().value(0), dialog->defaultSuffix()};
}

QString AskForExistingFile(QWidget* parent, const QString& title, const QString& path) {
    const QFileInfo proposed(path);
    const FileDialog dialog(new QFileDialog(parent, title, proposed.absolutePath()));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->selectFile(proposed.fileName());
    return dialog->exec() == QDialog::Accepted
               ? QDir::toNativeSeparators(dialog->selectedFiles().value(0))
               : QString();
}

QString AskForFolder(QWidget* parent, const QString& title, const QString& folder) {
    const FileDialog dialog(new QFileDialog(parent, title, folder));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    return dialog->exec() == QDialog::Accepted
               ? QDir::toNativeSeparators(dialog->selectedFiles().value(0))
               : QString();
}

}  // namespace vx3260
