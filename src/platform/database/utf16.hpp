// UTF-8 to UTF-16 and back: the drivers of servers are spoken to in UTF-16, so that no setting of the process (its
// locale) can change a text on the way.
#pragma once

#include <string>
#include <string_view>

namespace kestrel::database {

// A byte that belongs to no character becomes U+FFFD.
std::u16string utf16(std::string_view text);

// Adds the text to out. A half of a pair that stands alone becomes U+FFFD.
void appendUtf8(std::string& out, std::u16string_view text);
std::string utf8(std::u16string_view text);

} // namespace kestrel::database
