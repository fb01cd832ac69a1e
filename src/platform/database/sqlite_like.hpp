// Inside the engine only: LIKE for what lists ask, a word anywhere in a column.
#pragma once

#include <sqlite3.h>

namespace kestrel::database {

// From now on the handle answers LIKE (without ESCAPE) by a search of our own where the pattern is one word between
// "%", and by the engine's own comparison everywhere else. The answers are the engine's in every case. The engine's
// code.
int replaceLike(sqlite3* handle);

} // namespace kestrel::database
