// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

namespace vx3260 {

/// Marks a line edit whose text cannot be used, with a warning sign and the reason as its tool tip
/// and accessible description. An empty reason removes the mark and brings the tool tip back.
void MarkEntry(QLineEdit* edit, const QString& reason);

/// Whether the line edit is marked.
bool IsMarked(const QLineEdit* edit);

}  // namespace vx3260
