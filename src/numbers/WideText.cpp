// SPDX-License-Identifier: GPL-3.0-or-later
#include "numbers/WideText.h"

#include <windows.h>

namespace vx3260 {

namespace {

std::wstring ToWideFrom(UINT codePage, std::string_view text) {
    const auto size = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, text.data(), size, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

}  // namespace

std::wstring ToWide(std::string_view text) {
    return ToWideFrom(CP_UTF8, text);
}

std::string CodePageToUtf8(std::string_view text) {
    return ToUtf8(ToWideFrom(CP_ACP, text));
}

std::string ToUtf8(std::wstring_view text) {
    const auto size = static_cast<int>(text.size());
    std::string bytes(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size,
                                                                   nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), static_cast<int>(bytes.size()),
                        nullptr, nullptr);
    return bytes;
}

}  // namespace vx3260
