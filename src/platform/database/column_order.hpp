// Where nulls stand in an ordered answer: in front of everything when it ascends, behind everything when it descends.
// Some engines do that by themselves; for those that don't, the words stand behind the column. They stand behind no
// column that can't be null: there they would only keep the server from using its index.
#pragma once

#include "platform/database/selects.hpp"
#include "platform/database/writer.hpp"

#include <cstddef>
#include <string_view>

namespace kestrel::database {

// What to write behind the expression of ORDER BY whose tokens are [begin, end): " NULLS FIRST", " NULLS LAST", or
// nothing where it is no plain column, says so itself or is never null.
std::string_view orderOfNulls(const Writer& writer, const Select& select, std::size_t begin, std::size_t end);

} // namespace kestrel::database
