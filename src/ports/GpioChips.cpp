// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/GpioChips.h"

#include <fcntl.h>
#include <linux/gpio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "numbers/SimilarText.h"
#include "numbers/WholeNumber.h"
#include "ports/DeviceFiles.h"
#include "ports/Ioctl.h"

namespace vx3260 {
namespace {

constexpr std::string_view chipPrefix = "gpiochip";

constexpr const char* chipsOfUdev = "SUBSYSTEM==\"gpio\", KERNEL==\"gpiochip*\"";

/// The errno of a chip of which only the first version of the ioctls is there: those of the second
/// fail as they do on other devices.
constexpr int tooOld = EOPNOTSUPP;

/// Copies what the ioctls report about an open chip; empty, with errno, where one fails.
std::optional<GpioChip> Inspect(const std::string& path, int device) {
    gpiochip_info about{};
    if (Ioctl(device, GPIO_GET_CHIPINFO_IOCTL, &about) == -1) {
        return std::nullopt;
    }
    GpioChip chip{.path = path, .label = KernelText(about.label)};
    for (std::uint32_t offset = 0; offset < about.lines; ++offset) {
        gpio_v2_line_info info{};
        info.offset = offset;
        if (Ioctl(device, GPIO_V2_GET_LINEINFO_IOCTL, &info) == -1) {
            errno = errno == EINVAL || errno == ENOTTY ? tooOld : errno;
            return std::nullopt;
        }
        chip.lines.push_back({KernelText(info.name), KernelText(info.consumer),
                              (info.flags & GPIO_V2_LINE_FLAG_USED) != 0});
    }
    return chip;
}

std::string NameOf(const GpioChip& chip, std::size_t offset) {
    const std::string& name = chip.lines[offset].name;
    return name.empty() ? "line " + std::to_string(offset) : name;
}

/// A line by its offset or, otherwise, by its name.
std::optional<std::uint32_t> OffsetOf(const GpioChip& chip, const std::string& line) {
    if (const std::optional<std::int64_t> number = DecimalNumber(line)) {
        const bool there = *number >= 0 && *number < static_cast<std::int64_t>(chip.lines.size());
        return there ? std::optional(static_cast<std::uint32_t>(*number)) : std::nullopt;
    }
    const auto found = std::ranges::find(chip.lines, line, &GpioLineInfo::name);
    return found == chip.lines.end()
               ? std::nullopt
               : std::optional(static_cast<std::uint32_t>(found - chip.lines.begin()));
}

/// The first of the names that the chip does not have.
std::optional<std::string> MissingOn(const GpioChip& chip, const LineNames& names) {
    for (const std::string& name : names) {
        if (!name.empty() && !OffsetOf(chip, name)) {
            return name;
        }
    }
    return std::nullopt;
}

std::string MissingDetail(const GpioChip& chip, const std::string& line) {
    std::vector<std::string> names;
    for (const GpioLineInfo& info : chip.lines) {
        if (!info.name.empty()) {
            names.push_back(info.name);
        }
    }
    const std::string suggestion = Suggestion(line, names);
    return chip.path + " (" + GpioChipText(chip) + ") has no line " + line +
           (suggestion.empty() ? "." : suggestion) +
           " \"vx3260-cli ports\" lists the chips; all lines have to be on one.";
}

struct AllChips {
    std::vector<GpioChip> chips{};
    std::string firstFailure{};  ///< why the first of the others cannot be looked at
};

AllChips LookAtAllChips() {
    AllChips all;
    for (const std::string& path : FindGpioChips()) {
        if (std::optional<GpioChip> chip = GpioChipAt(path)) {
            all.chips.push_back(std::move(*chip));
        } else if (all.firstFailure.empty()) {
            all.firstFailure = GpioOpenFailureDetail(path, errno);
        }
    }
    return all;
}

/// The chip that has the most of the names shows which one is missing.
std::optional<GpioChip> ChipWith(const LineNames& names, std::string& failure) {
    const bool offsets = std::ranges::any_of(
        names, [](const std::string& name) { return DecimalNumber(name).has_value(); });
    if (offsets) {
        failure = "Lines that are numbers need the chip too: chip=/dev/gpiochip0";
        return std::nullopt;
    }
    const auto [chips, firstFailure] = LookAtAllChips();
    if (chips.empty()) {
        failure = firstFailure.empty() ? "This machine has no GPIO chip (/dev/gpiochip0 ...)."
                                       : firstFailure;
        return std::nullopt;
    }
    const auto namesOn = [&names](const GpioChip& chip) {
        return std::ranges::count_if(names, [&chip](const std::string& name) {
            return !name.empty() && OffsetOf(chip, name).has_value();
        });
    };
    const GpioChip& best = *std::ranges::max_element(chips, {}, namesOn);
    if (const std::optional<std::string> missing = MissingOn(best, names)) {
        failure = MissingDetail(best, *missing) + (firstFailure.empty() ? "" : "\n") + firstFailure;
        return std::nullopt;
    }
    return best;
}

}  // namespace

int OpenGpioChip(const std::string& path, int mode) {
    return open(path.c_str(), mode | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

std::optional<GpioChip> GpioChipAt(const std::string& path) {
    const int device = OpenGpioChip(path, O_RDONLY);
    if (device == -1) {
        return std::nullopt;
    }
    std::optional<GpioChip> chip = Inspect(path, device);
    const int error = errno;
    close(device);
    errno = error;
    return chip;
}

std::vector<std::string> FindGpioChips() {
    std::vector<std::string> paths;
    for (const std::string& name : NamesIn("/dev")) {
        if (name.starts_with(chipPrefix)) {
            paths.push_back("/dev/" + name);
        }
    }
    std::ranges::sort(paths, {},
                      [](const std::string& path) { return std::pair(path.size(), path); });
    return paths;
}

std::string GpioOpenFailureDetail(const std::string& path, int error) {
    switch (error) {
        case EACCES:
        case EPERM:
            return PermissionDetail(path, AccessRuleDetail("gpio", chipsOfUdev));
        case ENOTTY:
        case EINVAL:
            return path + " is not a GPIO chip. \"vx3260-cli ports\" lists those there are.";
        case tooOld:
            return path +
                   " cannot be used: this kernel's GPIO interface is too old; Linux 5.10 or later "
                   "is needed.";
        case ENOENT:
        case ENXIO:
        case ENODEV: {
            std::string there;
            for (const std::string& chip : FindGpioChips()) {
                there += (there.empty() ? "; there are " : ", ") + chip;
            }
            return "There is no " + path + there + ".";
        }
        default:
            return path + " cannot be opened: " + std::generic_category().message(error);
    }
}

std::string GpioChipText(const GpioChip& chip) {
    return chip.label + ", lines 0 to " +
           std::to_string(static_cast<std::int64_t>(chip.lines.size()) - 1);
}

std::string HeldLinesText(const GpioChip& chip) {
    std::string text;
    for (std::size_t offset = 0; offset < chip.lines.size(); ++offset) {
        const GpioLineInfo& line = chip.lines[offset];
        if (line.used) {
            text += (text.empty() ? "" : ", ") + NameOf(chip, offset) + " by " +
                    (line.consumer.empty() ? "the system" : line.consumer);
        }
    }
    return text;
}

std::optional<GpioPlace> FindGpioLines(const std::string& path, const LineNames& names,
                                       std::string& failure) {
    std::optional<GpioChip> chip = path.empty() ? ChipWith(names, failure) : GpioChipAt(path);
    if (!chip) {
        failure = path.empty() ? failure : GpioOpenFailureDetail(path, errno);
        return std::nullopt;
    }
    if (const std::optional<std::string> missing = MissingOn(*chip, names)) {
        failure = MissingDetail(*chip, *missing);
        return std::nullopt;
    }
    GpioPlace place{.chip = std::move(*chip)};
    for (std::size_t i = 0; i < names.size(); ++i) {
        place.offsets.at(i) =
            names.at(i).empty() ? std::nullopt : OffsetOf(place.chip, names.at(i));
        const auto* const twice =
            std::find(place.offsets.begin(), place.offsets.begin() + i, place.offsets.at(i));
        if (place.offsets.at(i) && twice != place.offsets.begin() + i) {
            failure = names.at(i) + " and " +
                      names.at(static_cast<std::size_t>(twice - place.offsets.begin())) +
                      " are the same line of " + place.chip.path +
                      ". Choose another for one of them.";
            return std::nullopt;
        }
    }
    return place;
}

}  // namespace vx3260
