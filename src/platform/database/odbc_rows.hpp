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
    void addAbsent(); // of a column that was not fetched
    void copy(const Cells& other, std::size_t index);
    std::size_t count() const { return ends.size(); }
    bool isAbsent(std::size_t index) const { return ends[index].kind == Kind::absent; }
    std::optional<std::string_view> at(std::size_t index) const; // not of an absent one

private:
    enum class Kind { text, null, absent };
    std::string texts;
    struct End {
        std::size_t byte;
        Kind kind;
    };
    std::vector<End> ends;
};

// How a driver hands out rows.
struct OdbcReading {
    bool inBlocks = false; // and the rest of a text that was too long for its place; else one by one, text by text
    bool byBytes = false;  // see DriverText; not in blocks
};

// The first few rows come with every column. Behind them only the columns that were read so far are fetched with their
// block, since a list shows a few of many; another one that is asked for is fetched for itself.
class OdbcFetch {
public:
    OdbcFetch(OdbcHandle executed, OdbcReading how); // executed: a statement that answers rows

    const std::vector<std::string>& names() const { return columnNames; }
    std::size_t rowsInAll() const;                       // where the driver holds the whole answer
    bool isOver() const { return !statement; }           // nothing more comes; the cursor is given back
    bool hasMore() const { return statement && !ended; } // further blocks may come
    void read(std::size_t column) { wanted[column] = true; }
    bool hasAbsent() const { return statement && !allBound; }
    void wantAll(); // from the next block on
    // Puts the next block's rows behind the cells. Over at the end, unless the block has absent cells, and after a
    // failure.
    std::optional<OdbcFailure> fetch(Cells& cells);
    // One cell of the present block, put behind the cells; false: it can't be had.
    bool fetchCell(Cells& cells, std::size_t row, std::size_t column);
    void stop(); // gives the cursor back

private:
    void readNames();
    void bind(std::size_t rows);
    void bindColumn(std::size_t column, std::size_t place);
    bool addRow(Cells& cells, std::size_t row);
    bool addBound(Cells& cells, std::size_t row, std::size_t place, std::size_t column);
    bool addAsked(Cells& cells, std::size_t column);
    template <class Text> bool addPieces(Cells& cells, std::size_t column);
    bool isBound(std::size_t column) const { return places[column] != unbound; }

    static constexpr std::size_t unbound = static_cast<std::size_t>(-1);
    OdbcHandle statement;
    OdbcReading reading;
    std::vector<std::string> columnNames;
    std::vector<bool> wanted;          // by column
    std::vector<std::size_t> places;   // of bound columns within the memory, by column
    std::unique_ptr<SQLWCHAR[]> texts; // place by place, row by row, each of the width
    std::unique_ptr<SQLLEN[]> lengths; // likewise: bytes, or SQL_NULL_DATA
    std::size_t rowsBound = 0;         // 0: nothing is bound
    SQLULEN fetched = 0;
    bool ended = false, allBound = true;
};

} // namespace kestrel::database
