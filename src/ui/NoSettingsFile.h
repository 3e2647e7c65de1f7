// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace vx3260 {

/// Keeps Qt's file dialog from writing its history to a settings file in the user's home folder:
/// the program writes nothing but the files that the user saves. Called once, before the first
/// dialog. On Windows the Qt that the program is linked with has no settings.
void PreventSettingsFile();

}  // namespace vx3260
