// The few things that making and checking an installation asks of a database file.
#pragma once

#include "platform/result.hpp"
#include "setup/rows.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

using platform::Result;
using platform::Status;

// Makes a new database file and runs the statements in it, in one transaction.
Status createStore(const std::string& path, const std::vector<std::string>& statements);
// Runs the statements in a file that is there, in one transaction, without waiting for the disk: for a file that can be
// made again.
Status changeStore(const std::string& path, const std::vector<std::string>& statements);
// All rows of one SELECT; column names are those of the result.
Result<Rows> readStore(const std::string& path, std::string_view sql);
// The names of the columns of a table, or the engine's word on why there are none.
Result<std::vector<std::string>> columnsInStore(const std::string& path, std::string_view table);

} // namespace kestrel::setup
