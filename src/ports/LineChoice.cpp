// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/LineChoice.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "numbers/NumberText.h"
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

/// Also of "GPIO:" and "gpio24", which are refused: the path of a printer port begins otherwise.
const KindTraits* KindOf(std::string_view port) {
    const std::string upper = UpperCase(port);
    const auto* const kind = std::ranges::find_if(kinds, [&upper](const KindTraits& traits) {
        return upper.starts_with(UpperCase(traits.prefix.substr(0, traits.prefix.find(':'))));
    });
    return kind == std::end(kinds) ? nullptr : kind;
}

[[noreturn]] void Refuse(const std::string& reason) {
    throw std::invalid_argument(reason);
}

bool SameWord(std::string_view one, std::string_view other) {
    return UpperCase(one) == UpperCase(other);
}

/// The keys for a person, the last after "and".
std::string ListOf(const std::vector<std::string>& keys) {
    std::string list;
    for (const std::string& key : keys) {
        list += (list.empty() ? "" : &key == &keys.back() ? " and " : ", ") + key;
    }
    return list;
}

/// The line or the device that a key names, in capital or small letters.
std::string& PlaceOf(std::string_view key, const KindTraits& kind, LineChoice& choice) {
    std::vector<std::string> names;
    for (const LineRoleTraits& role : LineRoles) {
        if (SameWord(role.name, key)) {
            return choice.lines.at(IndexOf(role.role));
        }
        names.emplace_back(role.name);
    }
    for (const std::string_view name : kind.deviceKeys) {
        if (!name.empty() && SameWord(name, key)) {
            return choice.device;
        }
        if (!name.empty()) {
            names.emplace_back(name);
        }
    }
    Refuse("'" + std::string(key) + "' is not a key; there are " + ListOf(names) +
           Suggestion(key, names));
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

std::vector<std::string> LineChoicesFrom(std::string_view begun) {
    std::vector<std::string> choices;
    for (const KindTraits& kind : kinds) {
        if (!begun.starts_with(kind.prefix)) {
            choices.emplace_back(kind.prefix);
            continue;
        }
        const std::size_t lastComma = begun.rfind(',');
        const std::string before(begun.substr(
            0, lastComma == std::string_view::npos ? kind.prefix.size() : lastComma + 1));
        const auto add = [&](std::string_view key, std::string_view value) {
            const std::string entry = std::string(key) + "=";
            const bool there = before.find(":" + entry) != std::string::npos ||
                               before.find("," + entry) != std::string::npos;
            if (!key.empty() && !there) {
                choices.push_back(before + entry + std::string(value));
            }
        };
        for (const LineRoleTraits& role : LineRoles) {
            add(role.name, kind.defaults.at(IndexOf(role.role)));
        }
        for (const std::string_view key : kind.deviceKeys) {
            add(key, "");
        }
    }
    return choices;
}

LineChoice ParseLineChoice(std::string_view port) {
    const KindTraits* const kind = KindOf(port);
    if (kind == nullptr) {
        Refuse("'" + std::string(port) + "' does not begin with gpio: or ftdi:");
    }
    if (!port.starts_with(kind->prefix)) {
        const std::string prefix(kind->prefix);
        Refuse("'" + std::string(port) + "' is not a port; did you mean " + prefix + ", or " +
               prefix + "sclk=" + std::string(kind->defaults[IndexOf(LineRole::Sclk)]) + ",...?");
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
