// The statements that make tables and put rows into them, in the words of each family of SQL.
#pragma once

#include "setup/tables.hpp"
#include "setup/words.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

// CREATE TABLE and CREATE INDEX for every table of that database ("main", "local"), one statement each.
std::vector<std::string> createStatements(std::string_view database,
                                          database::Dialect dialect = database::Dialect::sqlite);
// The indexes that find a part of a text, for a server that has such; none for the other families.
std::vector<std::string> searchStatements(std::string_view database, database::Dialect dialect);
// DROP TABLE, for a table that is there.
std::string dropStatement(std::string_view table, database::Dialect dialect);
// "INSERT INTO T (a,b) VALUES ", with all columns that may be written, in their order.
std::string insertHead(const Table& table, const Words& words);

} // namespace kestrel::setup
