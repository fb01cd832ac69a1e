// From the suite's SQL text to the text of one family of SQL. Works on tokens, literals opaque. It knows exactly these
// features: TOP n, identifiers in square brackets, (nested) RIGHT JOIN, the comma list with (+), bare names whose
// letter case has to stay, and LIKE, which knows neither letter case nor an escape character. dialect_words.hpp tells
// which of them a family needs written otherwise. What it doesn't understand it passes on as it stands, so that a
// statement that is wrong fails in the engine and is never repaired.
#pragma once

#include "platform/database/dialect.hpp"
#include "platform/database/required_columns.hpp"

#include <string>
#include <string_view>

namespace kestrel::database {

// required: the columns of the database that can't be null, where that is known.
std::string rewrite(std::string_view sql, Dialect dialect, const RequiredColumns* required = nullptr);

} // namespace kestrel::database
