// The embedded engine: one SQLite file, its statements and their rows. Only connection.hpp and record_set.hpp stand on
// it.
#pragma once

#include "platform/result.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel::database {

struct SqliteDatabase; // the open file; its results hold on to it too
struct SqliteResult;   // a statement that is being read

// The rows of one SELECT, stepped lazily. As soon as the connection runs another statement, the rows that were not read
// yet are fetched and kept: a result shows the database as it was at its opening, and an open one neither keeps later
// statements on an old state of the database nor lets them fail. When the connection closes, its results are at their
// end.
class SqliteRows {
public:
    explicit SqliteRows(std::unique_ptr<SqliteResult> content);
    SqliteRows(SqliteRows&& other) noexcept;
    SqliteRows& operator=(SqliteRows&& other) noexcept;
    ~SqliteRows();

    bool none() const; // there was no row at all
    bool atEnd() const;
    platform::Status next(); // at the end: nothing. A failure leaves the rows at their end.
    int columnCount() const;
    std::string_view columnName(int index) const;
    std::optional<std::string_view>
    value(int index) const; // of the present row, valid until the next one; nothing: null

private:
    std::unique_ptr<SqliteResult> result;
};

class SqliteConnection {
public:
    explicit SqliteConnection(std::shared_ptr<SqliteDatabase> opened) : database(std::move(opened)) {}
    SqliteConnection(SqliteConnection&&) = default;
    SqliteConnection& operator=(SqliteConnection&& other) noexcept;
    ~SqliteConnection() { close(); }

    void close();
    // Seconds that a statement waits for a busy database, and may run, from now on (0: doesn't wait; runs without an
    // end).
    void limit(int waiting, int running);
    platform::Status execute(const std::string& sql);
    platform::Result<SqliteRows> open(const std::string& sql);
    platform::Status begin();        // takes the right to write at once, not with the first write
    platform::Status end(bool keep); // a commit that fails takes everything back

private:
    std::shared_ptr<SqliteDatabase> database;
};

// Opens the SQLite file that is there (the content was looked at before) in the house's journal mode and reads its
// header and table definitions. A file that can't be written is opened for reading.
platform::Result<SqliteConnection> openSqlite(const std::string& path, int waiting, int running);

} // namespace kestrel::database
