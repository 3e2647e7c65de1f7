// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/UtcTime.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace vx3260 {
namespace {

std::string Digits(std::int64_t number, std::size_t count) {
    const std::string digits = std::to_string(number);
    return std::string(count - std::min(count, digits.size()), '0') + digits;
}

std::string TwoDigits(std::int64_t number) {
    return Digits(number, 2);
}

std::string DateText(std::chrono::sys_days day) {
    const std::chrono::year_month_day date(day);
    return Digits(static_cast<int>(date.year()), 4) + "-" +
           TwoDigits(static_cast<unsigned>(date.month())) + "-" +
           TwoDigits(static_cast<unsigned>(date.day()));
}

std::string ClockText(std::chrono::seconds sinceMidnight) {
    const std::chrono::hh_mm_ss clock(sinceMidnight);
    return TwoDigits(clock.hours().count()) + ":" + TwoDigits(clock.minutes().count()) + ":" +
           TwoDigits(clock.seconds().count());
}

}  // namespace

std::string TimeText(UtcTime time) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const auto day = std::chrono::floor<std::chrono::days>(seconds);
    return DateText(day) + " " + ClockText(seconds - day) + " UTC";
}

std::string IsoTimeText(UtcTime time) {
    constexpr int milliseconds = 1000;
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const auto day = std::chrono::floor<std::chrono::days>(seconds);
    // The 1 in front keeps the leading zeros and becomes the point.
    std::string fraction = std::to_string(milliseconds + (time - seconds).count());
    fraction.front() = '.';
    return DateText(day) + "T" + ClockText(seconds - day) + fraction + "Z";
}

}  // namespace vx3260
