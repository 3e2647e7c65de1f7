// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDialog>
#include <memory>

/// Qt's file dialog writes its history to a settings file in the user's home folder, on Windows to
/// the registry. The program writes nothing but the files that the user saves.
namespace vx3260 {

/// Keeps file dialogs from writing their settings file. Called once, before the first of them.
void PreventSettingsFile();

/// Ends a file dialog's life; on Windows, where it would write to the registry then, only hides it
/// and keeps it until the process ends.
struct DiscardDialog {
    void operator()(QFileDialog* dialog) const;
};

using FileDialog = std::unique_ptr<QFileDialog, DiscardDialog>;

}  // namespace vx3260
