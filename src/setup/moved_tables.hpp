// The tables of a main database on their way from one engine to another.
#pragma once

#include "setup/store.hpp"

#include <ostream>
#include <string>
#include <vector>

namespace kestrel::setup {

// What the source holds and the suite's definition doesn't know, as a person reads it: "table X", "column X.Y".
Result<std::vector<std::string>> unknownParts(Connection& source);

// Makes all main tables in the target, which has none of them, and copies the rows, as a whole; then reads the copy and
// compares it with what was read from the source. A table or column that the source lacks becomes empty. One line of
// progress for each table. What fails may leave tables behind. Raises DatabaseError when a table can't be read to its
// end.
Status copyMainTables(Connection& source, Connection& target, std::ostream& progress);

} // namespace kestrel::setup
