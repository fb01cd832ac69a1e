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
    void expect(std::size_t more); // room for so many more, made once
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

// The places that a driver writes a block into, column by column, row by row. What it doesn't write to is no memory
// yet.
struct OdbcRoom {
    std::size_t places = 0;
    std::unique_ptr<char[]> texts;
    std::unique_ptr<SQLLEN[]> lengths; // bytes, or SQL_NULL_DATA
};

// Rooms of a session that nobody is in, for the next read: a new one each time would cost more than most reads do.
using OdbcRooms = std::vector<OdbcRoom>;

// How a driver hands out rows.
struct OdbcReading {
    bool inBlocks = false; // and the rest of a text that was too long for its place; else one by one, text by text
    bool byBytes = false;  // see DriverText
};

class OdbcFetch {
public:
    // executed: a statement that answers rows. rooms: outlives this.
    OdbcFetch(OdbcHandle executed, OdbcReading how, OdbcRooms& itsRooms);
    OdbcFetch(OdbcFetch&&) = delete;
    ~OdbcFetch() { stop(); }

    const std::vector<std::string>& names() const { return columnNames; }
    bool isOver() const { return !statement; } // nothing more comes; the cursor is given back
    // Puts the next block's rows behind the cells. Over at the end, and after a failure.
    std::optional<OdbcFailure> fetch(Cells& cells);
    void stop(); // gives the cursor back

private:
    void readNames();
    void bind();
    bool addRow(Cells& cells, std::size_t row);
    bool addBound(Cells& cells, std::size_t row, std::size_t column);
    bool addAsked(Cells& cells, std::size_t column);
    template <class Text> bool addPieces(Cells& cells, std::size_t column);

    OdbcHandle statement;
    OdbcReading reading;
    OdbcRooms& rooms;
    OdbcRoom room; // in blocks
    std::vector<std::string> columnNames;
    SQLULEN fetched = 0;
};

} // namespace kestrel::database
