// The stored form of a PIN. It hides a PIN from a glance at the table and is no protection from someone who has the
// program.
#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// Plain text (any bytes) to upper-case hexadecimal digits; a PIN has one stored form.
std::string encode(std::string_view plain);

// And back; either letter case. The empty text for anything malformed: an odd length, another character than a
// hexadecimal digit, a check that doesn't fit.
std::string decode(std::string_view stored);

} // namespace kestrel
