// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Handbook.h"

#include <QDir>
#include <QFile>

namespace vx3260 {

QString HandbookOf(const QString& programFolder) {
    for (const char* const place : {"handbook", "../share/vx3260-eval/handbook"}) {
        const QString page =
            QDir(programFolder).filePath(QLatin1String(place) + QStringLiteral("/index.html"));
        if (QFile::exists(page)) {
            return QDir::cleanPath(page);
        }
    }
    return {};
}

}  // namespace vx3260
