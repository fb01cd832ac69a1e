// Inside the engine only: the rows of an executed statement, fetched in blocks into bound columns.
#pragma once

#include "platform/database/odbc_handle.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::database {

inline constexpr std::size_t rowsOfBlock = 256;

// Rows as texts, in one piece of memory.
class Cells {
public:
    void clear();
    void add(std::u16string_view text);
    void add(std::string_view text);
    void addNull();
    std::size_t count() const { return ends.size(); }
    std::optional<std::string_view> at(std::size_t index) const;

private:
    std::string texts;
    struct End {
        std::size_t byte;
        bool null;
    };
    std::vector<End> ends;
};

// How a driver hands out rows.
struct OdbcReading {
    bool inBlocks = false; // and the rest of a text that was too long for its place; else one by one, text by text
    bool byBytes = false;  // see DriverText; not in blocks
};

class OdbcFetch {
public:
    OdbcFetch(OdbcHandle executed, OdbcReading how); // executed: a statement that answers rows

    const std::vector<std::string>& names() const { return columnNames; }
    bool isOver() const { return !statement; } // nothing more comes; the cursor is given back
    // Adds the next block's rows to the cells. Over at the end, and after a failure.
    std::optional<OdbcFailure> fetch(Cells& cells);
    void stop(); // gives the cursor back

private:
    struct Column {
        std::unique_ptr<SQLWCHAR[]> texts; // one after the other, each of the width
        std::unique_ptr<SQLLEN[]> lengths; // bytes, or SQL_NULL_DATA
    };
    void readNames();
    void bind();
    bool addRow(Cells& cells, std::size_t row);
    bool addBound(Cells& cells, std::size_t row, std::size_t column);
    bool addAsked(Cells& cells, std::size_t column);
    template <class Text> bool addPieces(Cells& cells, std::size_t column);

    OdbcHandle statement;
    OdbcReading reading;
    std::vector<std::string> columnNames;
    std::vector<Column> columns; // empty: nothing is bound
    SQLULEN fetched = 0;
};

} // namespace kestrel::database
