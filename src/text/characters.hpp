// Characters of UTF-8 texts. A character is a code point, in every length, position and "first n characters"; a byte
// that is no valid UTF-8 counts as one character of its own. Blank means U+0020; trimming takes blanks only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::text {

std::size_t length(std::string_view text);                                     // in characters
std::vector<std::string_view> characters(std::string_view text);               // one view a character
std::string slice(std::string_view text, std::size_t from, std::size_t count); // from 0; short at the end
std::string first(std::string_view text, std::size_t count);

// Length in bytes of code page 932, by class: U+0000 to U+007F and U+FF61 to U+FF9F one byte, every other character
// two.
std::size_t byteLength932(std::string_view text);

std::string trim(std::string_view text);
std::string trimLeft(std::string_view text);
std::string trimRight(std::string_view text);

bool contains(std::string_view text, std::string_view part);
bool startsWith(std::string_view text, std::string_view part);
std::string padRight(std::string_view text, std::size_t width); // blanks up to, or cut to, width characters
std::string lowerAscii(std::string_view text);
std::string upperAscii(std::string_view text);
std::string replaceAll(std::string_view text, std::string_view what, std::string_view by);

} // namespace kestrel::text
