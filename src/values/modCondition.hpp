// The conditions that a caller hands to a list window: column, operator, quoted value, joined by AND or OR. A search by
// text, no parser of SQL; letter case is ignored for ASCII and full-width Latin letters.
#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// The value of the column's condition, which is cut out of the text together with what the cutting rules count to it.
// Empty when the column has no condition, or when its closing apostrophe is missing: then the text stays as it is.
// The value ends at the first apostrophe, doubled or not. Of a LIKE condition every "%" is dropped from the value.
std::string takeConditionValue(std::string_view column, std::string& condition);

// Whether these words occur anywhere in the condition, letter case ignored likewise.
bool conditionHolds(std::string_view condition, std::string_view words);

} // namespace kestrel
