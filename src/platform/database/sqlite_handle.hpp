// Inside the engine only: opening a SQLite file as this house wants it.
#pragma once

#include "platform/result.hpp"

#include <sqlite3.h>
#include <string>

namespace kestrel::database {

platform::Failure sqliteFailure(sqlite3* handle, int code); // the engine's number and its own words

// Runs a text of the house's own; the engine's code.
int runSqlite(sqlite3* handle, const char* sql);

// The open handle, its header and table definitions read, or what went wrong (then nothing is open).
platform::Result<sqlite3*> openSqliteHandle(const std::string& path, int waiting);

// "wal" for a local disk. "delete" for a file share, where the shared memory of the write-ahead log doesn't work.
const char* houseJournalMode(const std::string& path);
bool isFileShare(long fileSystemType); // by the kernel's number for it

} // namespace kestrel::database
