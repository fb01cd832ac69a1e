// Reading a connection text.
#pragma once

#include <string>
#include <string_view>

namespace kestrel::database {

// The value of the key in a text of "Key=value;" pairs, empty when it isn't there. Letter case of keys (ASCII) and
// blanks around keys and values are ignored, the last of several pairs counts. A value that holds ";" stands in single
// or double quotes, a quote within it doubled.
std::string connectionValue(std::string_view text, std::string_view key);

} // namespace kestrel::database
