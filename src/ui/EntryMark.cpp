// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/EntryMark.h"

#include <QAction>
#include <QStyle>

namespace vx3260 {
namespace {

constexpr QLatin1String markName("entryMark");

}  // namespace

void MarkEntry(QLineEdit* edit, const QString& reason) {
    const bool wasMarked = IsMarked(edit);
    if (!wasMarked && reason.isEmpty()) {
        return;
    }
    auto* mark = edit->findChild<QAction*>(markName, Qt::FindDirectChildrenOnly);
    if (mark == nullptr) {
        mark = edit->addAction(edit->style()->standardIcon(QStyle::SP_MessageBoxWarning),
                               QLineEdit::TrailingPosition);
        mark->setObjectName(markName);
    }
    if (!wasMarked) {
        mark->setData(edit->toolTip());
    }
    mark->setVisible(!reason.isEmpty());
    mark->setToolTip(reason);
    edit->setToolTip(reason.isEmpty() ? mark->data().toString() : reason);
    edit->setAccessibleDescription(reason);
}

bool IsMarked(const QLineEdit* edit) {
    const auto* mark = edit->findChild<QAction*>(markName, Qt::FindDirectChildrenOnly);
    return mark != nullptr && mark->isVisible();
}

}  // namespace vx3260
