// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PlotSaving.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <vector>

#include "files/CodeFile.h"
#include "ui/NoSettingsFile.h"

namespace vx3260 {
namespace {

struct FileKind {
    QString filter;
    QString suffix;
};

FileKind PngFile() {
    return {QCoreApplication::translate("PlotSaving", "PNG Picture (*.png)"),
            QStringLiteral("png")};
}
FileKind PdfFile() {
    return {QCoreApplication::translate("PlotSaving", "PDF Document (*.pdf)"),
            QStringLiteral("pdf")};
}
FileKind CsvFile() {
    return {QCoreApplication::translate("PlotSaving", "Comma-Separated Values (*.csv)"),
            QStringLiteral("csv")};
}

struct ChosenFile {
    QString path;    ///< empty if the user cancelled
    QString suffix;  ///< of the kind that was chosen
};

/// The dialog itself asks before it returns the name of an existing file.
ChosenFile AskForFile(QWidget* parent, const QString& name, const std::vector<FileKind>& kinds) {
    const FileDialog dialog(new QFileDialog(parent));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
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

bool IsPdf(const ChosenFile& file) {
    const QString typed = QFileInfo(file.path).suffix().toLower();
    const bool known = typed == PdfFile().suffix || typed == PngFile().suffix;
    return (known ? typed : file.suffix) == PdfFile().suffix;
}

std::string NativePath(const ChosenFile& file) {
    return QDir::toNativeSeparators(file.path).toStdString();
}

}  // namespace

QString SavePictureAs(QWidget* parent, const QString& name, PlotView& view,
                      const QStringList& lines) {
    const ChosenFile file = AskForFile(parent, name, {PngFile(), PdfFile()});
    if (!file.path.isEmpty()) {
        const QByteArray bytes = IsPdf(file) ? view.Pdf(lines) : view.Png(lines);
        ReplaceFile(NativePath(file), {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    }
    return QDir::toNativeSeparators(file.path);
}

QString SaveCsvAs(QWidget* parent, const QString& name, std::string_view csv) {
    const ChosenFile file = AskForFile(parent, name, {CsvFile()});
    if (!file.path.isEmpty()) {
        ReplaceFile(NativePath(file), csv);
    }
    return QDir::toNativeSeparators(file.path);
}

}  // namespace vx3260
