// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace standin {

// Wide text is UTF-32 where wchar_t has four bytes and UTF-16 elsewhere. Bytes that are not UTF-8
// become U+FFFD.
std::wstring wideFromUtf8(const std::string &text);
std::string utf8FromWide(const std::wstring &text);

} // namespace standin
