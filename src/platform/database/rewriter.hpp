// From the suite's SQL text to the text of one engine. Works on tokens, literals opaque. It knows exactly four
// features: TOP n, identifiers in square brackets, (nested) RIGHT JOIN, and the comma list with (+). What it doesn't
// understand it passes on byte for byte, so that a statement that is wrong fails in the engine and is never repaired.
#pragma once

#include "platform/database/dialect.hpp"

#include <string>
#include <string_view>

namespace kestrel::database {

std::string rewrite(std::string_view sql, Dialect dialect);

} // namespace kestrel::database
