// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/EntryMark.h"

#include <QAction>
#include <QStyle>

namespace vx3260 {
namespace {

constexpr QLatin1String markName("entryMark");

}  // namespace

void MarkEntry(QLineEdit* box, const QString& reason) {
    auto* mark = box->findChild<QAction*>(markName, Qt::FindDirectChildrenOnly);
    if (mark == nullptr && !reason.isEmpty()) {
        mark = box->addAction(box->style()->standardIcon(QStyle::SP_MessageBoxWarning),
                              QLineEdit::TrailingPosition);
        mark->setObjectName(markName);
    }
    if (mark != nullptr) {
        mark->setVisible(!reason.isEmpty());
        mark->setToolTip(reason);
    }
    box->setToolTip(reason);
    box->setAccessibleDescription(reason);
}

bool IsMarked(const QLineEdit* box) {
    const auto* mark = box->findChild<QAction*>(markName, Qt::FindDirectChildrenOnly);
    return mark != nullptr && mark->isVisible();
}

}  // namespace vx3260
