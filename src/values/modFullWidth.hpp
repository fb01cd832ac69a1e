// Full-width forms: how the suite names its manuals, whatever the spelling of the program ID.
#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// ASCII digits, letters and symbols and half-width katakana become their full-width forms, a base with its sound mark
// one character. Blank, double quote, "^" and the back quote have no row and pass, like everything that is full-width
// already.
std::string toFullWidth(std::string_view text);

} // namespace kestrel
