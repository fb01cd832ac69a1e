// The engine of servers: one session of a database server through its ODBC driver, its statements and their rows. Only
// connection.hpp and record_set.hpp stand on it.
#pragma once

#include "platform/database/dialect.hpp"
#include "platform/database/required_columns.hpp"
#include "platform/result.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel::database {

struct OdbcSession; // the open session; its results hold on to it too
struct OdbcResult;  // a statement that is being read

// The rows of one SELECT, fetched in blocks (on some servers sent twice: with a bound first, see docs/design.md). As
// soon as the session runs another statement, the blocks that were not read yet are fetched and kept: a result shows
// the database as it was at its opening, and neither keeps a cursor nor a transaction open on the server behind the
// back of who doesn't read on. When the session closes, its results are at their end.
class OdbcRows {
public:
    explicit OdbcRows(std::unique_ptr<OdbcResult> content);
    OdbcRows(OdbcRows&& other) noexcept;
    OdbcRows& operator=(OdbcRows&& other) noexcept;
    ~OdbcRows();

    bool none() const; // there was no row at all
    bool atEnd() const;
    platform::Status next(); // at the end: nothing. A failure leaves the rows at their end.
    int columnCount() const;
    std::string_view columnName(int index) const;
    std::optional<std::string_view>
    value(int index) const; // of the present row, valid until the next one; nothing: null

private:
    std::unique_ptr<OdbcResult> result;
};

// A session that was lost (the failing statement says so) is opened anew, once, by the next statement, but never within
// a draw. No statement is sent twice.
class OdbcConnection {
public:
    explicit OdbcConnection(std::shared_ptr<OdbcSession> opened) : session(std::move(opened)) {}
    OdbcConnection(OdbcConnection&&) = default;
    OdbcConnection& operator=(OdbcConnection&& other) noexcept;
    ~OdbcConnection() { close(); }

    void close();
    // Seconds that a statement waits for what another session holds, and may run, from now on.
    void limit(int waiting, int running);
    platform::Status execute(const std::string& sql);
    platform::Result<OdbcRows> open(const std::string& sql); // sql: one that answers rows, else nothing is sent
    platform::Status begin();                                // takes the place of the one who draws
    platform::Status end(bool keep);
    Dialect dialect() const;
    const RequiredColumns& requiredColumns() const; // as they were when the session began

private:
    std::shared_ptr<OdbcSession> session;
};

// text: a connection text whose provider is no file's. Seconds for opening and for each statement.
platform::Result<OdbcConnection> openOdbc(std::string_view text, int waiting, int running);

} // namespace kestrel::database
