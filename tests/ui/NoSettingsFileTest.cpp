// SPDX-License-Identifier: GPL-3.0-or-later
// Not for Windows, where the settings of file dialogs are in the registry.
#include "ui/NoSettingsFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QSettings>
#include <QTemporaryDir>

namespace vx3260::test {
namespace {

TEST(NoSettingsFile, IsWrittenByAFileDialog) {
    const QTemporaryDir folder;
    const auto filesAfterADialog = [&folder] {
        { QFileDialog(nullptr, QString(), folder.path()).show(); }
        return QDir(folder.path()).entryList(QDir::Files);
    };
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    EXPECT_EQ(filesAfterADialog().size(), 1);
    EXPECT_TRUE(QFile::remove(folder.filePath(filesAfterADialog().constFirst())));
    PreventSettingsFile();
    EXPECT_EQ(filesAfterADialog().size(), 0);
}

}  // namespace
}  // namespace vx3260::test
