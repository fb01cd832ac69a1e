// A result that is read forward, row by row, its columns by name.
#pragma once

#include "platform/database/odbc_engine.hpp"
#include "platform/database/sqlite_engine.hpp"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

namespace kestrel::database {

// Raised for what has no answer: a column that isn't there, a null read without a default, a fetch that failed midway.
struct DatabaseError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class RecordSet {
public:
    RecordSet() = default; // never opened: at its end, and close() is harmless
    explicit RecordSet(SqliteRows content) : rows(std::move(content)) {}
    explicit RecordSet(OdbcRows content) : rows(std::move(content)) {}

    bool bof() const; // true when there is no row at all
    bool eof() const;
    void moveNext(); // raises DatabaseError when the engine fails midway
    void close();    // harmless at any time

    // The column's text in the present row. Column names compare as they stand, ASCII letters in either case.
    std::string text(std::string_view column) const;                            // a null raises
    std::string text(std::string_view column, std::string_view whenNull) const; // a null gives whenNull
    std::optional<std::string> textOrNull(std::string_view column) const;
    // The same for who reads many rows: the column is found once (one that isn't there raises), and the text is the
    // engine's own, valid until the next row; nothing for a null.
    int columnIndex(std::string_view column) const;
    std::optional<std::string_view> view(int index) const;
    int columnCount() const;
    std::string columnName(int index) const;

private:
    std::variant<std::monostate, SqliteRows, OdbcRows> rows;
};

} // namespace kestrel::database
