#include "platform/database/odbc_rows.hpp"

#include "platform/database/odbc_calls.hpp"
#include "platform/database/utf16.hpp"

#include <utility>

namespace kestrel::database {

namespace {

// Bytes of a place with the closing zero. Names and addresses are shorter; a memo is asked for once more.
constexpr std::size_t width = 512;

std::size_t cellOf(std::size_t row, std::size_t column) {
    return column * rowsOfBlock + row;
}

SQLPOINTER asNumber(std::size_t value) {
    return reinterpret_cast<SQLPOINTER>(value);
}

} // namespace

void Cells::clear() {
    texts.clear();
    ends.clear();
}

void Cells::expect(std::size_t more) {
    constexpr std::size_t usualBytes = 12;
    ends.reserve(ends.size() + more);
    texts.reserve(texts.size() + more * usualBytes);
}

void Cells::add(std::u16string_view text) {
    appendUtf8(texts, text);
    ends.push_back({texts.size(), false});
}

void Cells::add(std::string_view text) {
    texts += text;
    ends.push_back({texts.size(), false});
}

void Cells::addNull() {
    ends.push_back({texts.size(), true});
}

std::optional<std::string_view> Cells::at(std::size_t index) const {
    if (ends[index].null) return std::nullopt;
    const std::size_t begin = index == 0 ? 0 : ends[index - 1].byte;
    return std::string_view(texts).substr(begin, ends[index].byte - begin);
}

OdbcFetch::OdbcFetch(OdbcHandle executed, OdbcReading how, OdbcRooms& itsRooms)
    : statement(std::move(executed)), reading(how), rooms(itsRooms) {
    readNames();
    if (reading.inBlocks) bind();
}

void OdbcFetch::readNames() {
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement.get(), &count);
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        columnNames.push_back(columnName(statement.get(), i, reading.byBytes));
}

void OdbcFetch::bind() {
    if (!rooms.empty()) {
        room = std::move(rooms.back());
        rooms.pop_back();
    }
    const std::size_t cells = columnNames.size() * rowsOfBlock;
    if (room.places < cells)
        room = {cells, std::unique_ptr<char[]>(new char[cells * width]), std::unique_ptr<SQLLEN[]>(new SQLLEN[cells])};
    SQLSetStmtAttr(statement.get(), SQL_ATTR_ROW_ARRAY_SIZE, asNumber(rowsOfBlock), 0);
    SQLSetStmtAttr(statement.get(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    const SQLSMALLINT type = reading.byBytes ? SQL_C_CHAR : SQL_C_WCHAR;
    for (std::size_t i = 0; i < columnNames.size(); ++i)
        SQLBindCol(statement.get(), static_cast<SQLUSMALLINT>(i + 1), type, &room.texts[cellOf(0, i) * width],
                   static_cast<SQLLEN>(width), &room.lengths[cellOf(0, i)]);
}

std::optional<OdbcFailure> OdbcFetch::fetch(Cells& cells) {
    fetched = 1; // without a block nobody counts
    const SQLRETURN code = SQLFetch(statement.get());
    bool good = SQL_SUCCEEDED(code);
    if (good) cells.expect(fetched * columnNames.size());
    for (std::size_t row = 0; good && row < fetched; ++row) good = addRow(cells, row);
    const bool last = reading.inBlocks && fetched < rowsOfBlock;
    std::optional<OdbcFailure> failed;
    if (!good && code != SQL_NO_DATA) failed = odbcFailure(SQL_HANDLE_STMT, statement.get(), reading.byBytes);
    if (!good || last) stop();
    return failed;
}

void OdbcFetch::stop() {
    statement.free();
    if (room.places > 0) rooms.push_back(std::exchange(room, {}));
}

bool OdbcFetch::addRow(Cells& cells, std::size_t row) {
    bool good = true;
    for (std::size_t column = 0; good && column < columnNames.size(); ++column)
        good = reading.inBlocks ? addBound(cells, row, column) : addAsked(cells, column);
    return good;
}

bool OdbcFetch::addBound(Cells& cells, std::size_t row, std::size_t column) {
    const std::size_t cell = cellOf(row, column);
    const SQLLEN length = room.lengths[cell];
    const auto bytes = static_cast<std::size_t>(length);
    const char* text = &room.texts[cell * width];
    if (length == SQL_NULL_DATA)
        cells.addNull();
    else if (length < 0 || bytes > width - (reading.byBytes ? 1 : sizeof(SQLWCHAR)))
        return SQL_SUCCEEDED(SQLSetPos(statement.get(), row + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE)) &&
               addAsked(cells, column);
    else if (reading.byBytes)
        cells.add(std::string_view(text, bytes));
    else
        cells.add(std::u16string_view(reinterpret_cast<const char16_t*>(text), bytes / sizeof(char16_t)));
    return true;
}

template <class Text> bool OdbcFetch::addPieces(Cells& cells, std::size_t column) {
    Text text;
    for (;;) {
        const OdbcPiece piece = addPiece(statement.get(), column, text);
        if (piece.code != SQL_NO_DATA && !SQL_SUCCEEDED(piece.code)) return false;
        if (piece.null)
            cells.addNull();
        else if (!piece.more)
            cells.add(text);
        if (!piece.more) return true;
    }
}

bool OdbcFetch::addAsked(Cells& cells, std::size_t column) {
    return reading.byBytes ? addPieces<std::string>(cells, column) : addPieces<std::u16string>(cells, column);
}

} // namespace kestrel::database
