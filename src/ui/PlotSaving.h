// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <string_view>

#include "ui/PlotView.h"

/// Saving of a plot under a name that the user is asked for; `name` is proposed. Gives the path of
/// the saved file, or an empty text if the user cancels; nothing is saved then. Throws
/// FileAccessError if the file cannot be written.
namespace vx3260 {

/// Saves what the view shows, as PNG or PDF by the typed suffix, else by the chosen kind. `lines`
/// as for PlotView::Picture.
QString SavePictureAs(QWidget* parent, const QString& name, PlotView& view,
                      const QStringList& lines);

/// Saves comma-separated values.
QString SaveCsvAs(QWidget* parent, const QString& name, std::string_view csv);

}  // namespace vx3260
