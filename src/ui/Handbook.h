// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace vx3260 {

/// The first page of the handbook, HTML pages that are installed with the program, for a program in
/// this folder: in the folder "handbook" there, or where packages keep it. Empty if it is missing.
QString HandbookOf(const QString& programFolder);

}  // namespace vx3260
