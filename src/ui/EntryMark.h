// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

namespace vx3260 {

/// Marks an entry box whose text cannot be used, with a warning sign and the reason as its tool
/// tip and accessible description. An empty reason takes the mark away.
void MarkEntry(QLineEdit* box, const QString& reason);

/// Whether the box is marked.
bool IsMarked(const QLineEdit* box);

}  // namespace vx3260
