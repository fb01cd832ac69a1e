// Writing a text on one line between double quotes.
#pragma once

#include <string>
#include <string_view>

namespace kestrel::text {

// In double quotes, with \" \\ \n \r \t for the characters that would break the line.
std::string quoted(std::string_view text);

} // namespace kestrel::text
