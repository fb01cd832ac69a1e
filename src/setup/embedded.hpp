// The files of schema/, inside the program.
#pragma once

#include <string_view>

namespace kestrel::setup {

// The text of schema/NAME.tsv or schema/NAME.txt; the empty text when there is none.
std::string_view embeddedFile(std::string_view name);

} // namespace kestrel::setup
