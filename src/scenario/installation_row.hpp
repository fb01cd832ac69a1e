// The row of the local master database that says how the main database is reached.
#pragma once

#include <string>

namespace kestrel::scenario {

// Changes the row of the present run's installation: kind "A", "S" or "O"; connection text of a main database on a
// server. An empty one leaves what is there.
void redirectMain(const std::string& kind, const std::string& connectionText);

// Takes kind and connection text of the main database from that row into the present run; where there is no such row or
// no local database, what a sample has.
void takeMain();

} // namespace kestrel::scenario
