// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace vx3260 {

/// Entries of a folder by name; none where it cannot be read.
std::vector<std::string> NamesIn(const std::string& folder);

/// Permissions, owner and group of a device: "rw-rw---- root lp". Empty where there is none.
std::string PermissionsOf(const std::string& path);

/// Why a device cannot be used without permission, and the remedy: the group that owns it, or
/// `remedyWithoutGroup`, sentences, where no group but root's may use it.
std::string PermissionDetail(const std::string& path, const std::string& remedyWithoutGroup);

/// The udev rule that gives devices to a group; `match` is its part that selects them, `name` goes
/// into that of the file.
std::string AccessRuleDetail(const std::string& name, const std::string& match);

}  // namespace vx3260
