// Comparing names as databases do.
#pragma once

#include <algorithm>
#include <string_view>

namespace kestrel::database {

inline char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Letter case of ASCII letters is ignored; every other character counts as it stands.
inline bool sameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lowerAscii(x) == lowerAscii(y); });
}

} // namespace kestrel::database
