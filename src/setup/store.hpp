// The few things that making and checking an installation asks of a database.
#pragma once

#include "platform/database/connection.hpp"
#include "setup/rows.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

using database::Connection;
using platform::Result;
using platform::Status;

// The file of a local database below root, by its name without ending: the suite takes the newer of two formats where
// both lie side by side. Empty: neither is there.
std::string databaseFile(const std::string& root, const std::string& name);

// Opens the database file that is there.
Result<Connection> openStore(const std::string& path);
// Runs the statements, in the engine's own words, in one transaction (where its family knows none over several
// statements, one by one). The embedded engine doesn't wait for the disk: this is for what can be made again.
Status runTogether(Connection& store, const std::vector<std::string>& statements);
// All rows of one SELECT; column names are those of the result.
Result<Rows> readRows(Connection& store, std::string_view sql);
// The names of the columns of a table, or the engine's word on why there are none.
Result<std::vector<std::string>> columnNames(Connection& store, std::string_view table);

// The same on a file that is opened for it alone.
Status changeStore(const std::string& path, const std::vector<std::string>& statements);
Result<Rows> readStore(const std::string& path, std::string_view sql);

} // namespace kestrel::setup
