// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/LineChoice.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "numbers/SimilarText.h"

namespace vx3260 {
namespace {

struct KindTraits {
    LineKind kind;
    std::string_view prefix;
    std::array<std::string_view, 2> deviceKeys;               ///< the second may be missing
    std::array<std::string_view, LineRoles.size()> defaults;  ///< by role
};

/// The defaults are those of the wiring tables: of the 40-pin header of single-board computers, and
/// of a UART's pins.
constexpr KindTraits kinds[] = {
    {LineKind::Gpio, "gpio:", {"chip"}, {"GPIO24", "GPIO23", "GPIO22", "GPIO18", "GPIO17", ""}},
    {LineKind::Ftdi, "ftdi:", {"serial", "device"}, {"TXD", "RTS", "DTR", "RXD", "CTS", ""}},
};

const KindTraits* KindOf(std::string_view port) {
    const auto* const kind = std::ranges::find_if(
        kinds, [port](const KindTraits& traits) { return port.starts_with(traits.prefix); });
    return kind == std::end(kinds) ? nullptr : kind;
}

[[noreturn]] void Refuse(const std::string& reason) {
    throw std::invalid_argument(reason);
}

/// The line or the device that a key names.
std::string& PlaceOf(std::string_view key, const KindTraits& kind, LineChoice& choice) {
    std::vector<std::string> names;
    for (const std::string_view name : kind.deviceKeys) {
        if (!name.empty() && name == key) {
            return choice.device;
        }
        names.emplace_back(name);
    }
    for (const LineRoleTraits& role : LineRoles) {
        if (role.name == key) {
            return choice.lines.at(IndexOf(role.role));
        }
        names.emplace_back(role.name);
    }
    Refuse("'" + std::string(key) + "' is neither a line of the board nor \"" +
           std::string(kind.deviceKeys[0]) + "\"" + Suggestion(key, names));
}

void RefuseLineUsedTwice(const LineNames& lines) {
    for (const LineRoleTraits& one : LineRoles) {
        for (const LineRoleTraits& other : LineRoles) {
            const std::string& name = lines.at(IndexOf(one.role));
            if (one.role < other.role && !name.empty() && name == lines.at(IndexOf(other.role))) {
                Refuse("the line " + name + " is named twice, for " + std::string(one.name) +
                       " and for " + std::string(other.name));
            }
        }
    }
}

}  // namespace

bool IsLineChoice(std::string_view port) {
    return KindOf(port) != nullptr;
}

LineChoice ParseLineChoice(std::string_view port) {
    const KindTraits* const kind = KindOf(port);
    if (kind == nullptr) {
        Refuse("'" + std::string(port) + "' does not begin with gpio: or ftdi:");
    }
    LineChoice choice{.kind = kind->kind};
    std::ranges::transform(kind->defaults, choice.lines.begin(),
                           [](std::string_view name) { return std::string(name); });
    std::vector<const std::string*> seen;
    std::string_view rest = port.substr(kind->prefix.size());
    while (!rest.empty()) {
        const std::string_view entry = rest.substr(0, rest.find(','));
        rest.remove_prefix(std::min(entry.size() + 1, rest.size()));
        const std::size_t equals = std::min(entry.find('='), entry.size());
        const std::string_view key = entry.substr(0, equals);
        std::string& place = PlaceOf(key, *kind, choice);
        if (equals + 1 >= entry.size()) {
            Refuse(std::string(key) + " has no value; write " + std::string(key) + "=NAME");
        }
        if (std::ranges::find(seen, &place) != seen.end()) {
            Refuse(std::string(key) + " is given twice");
        }
        seen.push_back(&place);
        place = entry.substr(equals + 1);
    }
    RefuseLineUsedTwice(choice.lines);
    return choice;
}

}  // namespace vx3260
