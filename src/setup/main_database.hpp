// The main database of an installation, on whatever engine: its tables made, filled, found and taken away.
#pragma once

#include "setup/store.hpp"

#include <string>
#include <vector>

namespace kestrel::setup {

// Makes the tables of the main database and puts the rows in, quickly and as a whole: what fails leaves none of them.
// Fails, and touches nothing, where one of the tables is there already. Rows of other databases are passed over. On a
// server that can index parts of texts the searched columns get such an index (see searchesAreIndexed).
Status fillMainDatabase(Connection& store, const Rows& rows);

// Lets a server that has the means for such indexes use them in this database. Whoever may make tables may usually do
// that; without it the tables serve all the same, so a refusal is no failure.
void allowSearches(Connection& store);
// Whether the server finds parts of texts by an index, or could if it were let: nothing to say of engines that have no
// such index. Asked after the tables were made.
bool searchesAreIndexed(Connection& store);

// The names of all tables and views there are, in no order.
Result<std::vector<std::string>> presentTables(Connection& store);
// The tables of the main database that are there.
Result<std::vector<std::string>> ownTables(Connection& store);
// Fails, naming it, where one of them is there.
Status refuseOwnTables(Connection& store);
Status dropTables(Connection& store, const std::vector<std::string>& names);

} // namespace kestrel::setup
