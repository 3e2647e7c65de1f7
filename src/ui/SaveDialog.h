// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <vector>

namespace vx3260 {

/// A kind of file that can be saved.
struct FileKind {
    QString filter;  ///< of the dialog: "PDF Document (*.pdf)"
    QString suffix;
};

FileKind PdfFile();

struct ChosenFile {
    QString path;    ///< empty if the user cancelled
    QString suffix;  ///< of the kind that was chosen

    /// The typed suffix where it is that of one of the kinds, else the chosen one.
    QString SuffixAmong(const std::vector<FileKind>& kinds) const;

    /// With the system's separators.
    std::string NativePath() const;
};

/// Whether the dialog itself asks before it returns the name of an existing file.
enum class ExistingFile { Confirm, Accept };

/// Asks for the name of a file to save, with `name` proposed.
ChosenFile AskForFile(QWidget* parent, const QString& name, const std::vector<FileKind>& kinds,
                      ExistingFile existing = ExistingFile::Confirm);

/// Asks for a file that exists, with `path` proposed. With the system's separators; empty if the
/// user cancels.
QString AskForExistingFile(QWidget* parent, const QString& title, const QString& path);

/// Asks for a folder that exists or can be made, beginning at `folder`. Empty if the user cancels.
QString AskForFolder(QWidget* parent, const QString& title, const QString& folder);

}  // namespace vx3260
