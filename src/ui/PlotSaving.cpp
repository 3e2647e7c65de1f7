// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PlotSaving.h"

#include <QCoreApplication>
#include <QDir>
#include <vector>

#include "files/CodeFile.h"
#include "ui/SaveDialog.h"

namespace vx3260 {
namespace {

FileKind PngFile() {
    return {QCoreApplication::translate("PlotSaving", "PNG Picture (*.png)"),
            QStringLiteral("png")};
}
FileKind CsvFile() {
    return {QCoreApplication::translate("PlotSaving", "Comma-Separated Values (*.csv)"),
            QStringLiteral("csv")};
}

}  // namespace

QString SavePictureAs(QWidget* parent, const QString& name, PlotView& view,
                      const QStringList& lines) {
    const std::vector<FileKind> kinds{PngFile(), PdfFile()};
    const ChosenFile file = AskForFile(parent, name, kinds);
    if (!file.path.isEmpty()) {
        const QByteArray bytes =
            file.SuffixAmong(kinds) == PdfFile().suffix ? view.Pdf(lines) : view.Png(lines);
        ReplaceFile(file.NativePath(), {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    }
    return QDir::toNativeSeparators(file.path);
}

QString SaveCsvAs(QWidget* parent, const QString& name, std::string_view csv) {
    const ChosenFile file = AskForFile(parent, name, {CsvFile()});
    if (!file.path.isEmpty()) {
        ReplaceFile(file.NativePath(), csv);
    }
    return QDir::toNativeSeparators(file.path);
}

}  // namespace vx3260
