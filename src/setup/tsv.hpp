// Reading the files of schema/: lines of fields separated by tabs. Empty lines and lines that begin with "#" are notes.
#pragma once

#include <string_view>
#include <vector>

namespace kestrel::setup {

std::vector<std::string_view> split(std::string_view text, char separator);
// The lines of schema/NAME.tsv, cut into fields. Throws std::logic_error when there is no such file.
std::vector<std::vector<std::string_view>> fieldsOf(std::string_view name);

} // namespace kestrel::setup
