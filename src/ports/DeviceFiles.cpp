// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/DeviceFiles.h"

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

namespace vx3260 {
namespace {

constexpr mode_t groupMayReadAndWrite = S_IRGRP | S_IWGRP;

std::string GroupName(gid_t id) {
    const group* const found = getgrgid(id);
    return found != nullptr ? found->gr_name : std::to_string(id);
}

std::string UserName(uid_t id) {
    const passwd* const found = getpwuid(id);
    return found != nullptr ? found->pw_name : std::to_string(id);
}

std::optional<struct stat> StatusOf(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

std::string OwningGroupOf(const std::string& path) {
    const auto status = StatusOf(path);
    return status ? GroupName(status->st_gid) : std::string();
}

std::string JoinCommand(const std::string& group) {
    return "    sudo usermod -aG " + group + " " + UserName(getuid());
}

}  // namespace

std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        names.push_back(entry->path().filename().string());
    }
    return names;
}

std::string PermissionsOf(const std::string& path) {
    const auto status = StatusOf(path);
    if (!status) {
        return {};
    }
    constexpr std::string_view letters = "rwxrwxrwx";
    std::string text;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const bool set = (status->st_mode >> (letters.size() - 1 - i) & 1U) != 0;
        text += set ? letters[i] : '-';
    }
    return text + " " + UserName(status->st_uid) + " " + GroupName(status->st_gid);
}

std::string PermissionDetail(const std::string& path, const std::string& remedyWithoutGroup) {
    const std::string group = OwningGroupOf(path);
    const auto status = StatusOf(path);
    const bool groupMay =
        status && (status->st_mode & groupMayReadAndWrite) == groupMayReadAndWrite;
    if (group.empty() || group == "root" || !groupMay) {
        return "You have no permission to use " + path + ". " + remedyWithoutGroup;
    }
    return "You have no permission to use " + path + ", which belongs to the group \"" + group +
           "\". Join it with\n" + JoinCommand(group) + "\nthen log out and in again.";
}

std::string AccessRuleDetail(const std::string& name, const std::string& match) {
    return "Give access to a group, with a line in /etc/udev/rules.d/60-vx3260-" + name +
           ".rules:\n    " + match +
           ", GROUP=\"dialout\", MODE=\"0660\"\nand then\n"
           "    sudo udevadm control --reload && sudo udevadm trigger\n" +
           JoinCommand("dialout") + "\nthen log out and in again.";
}

}  // namespace vx3260
