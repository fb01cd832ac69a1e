#include "platform/database/odbc_rows.hpp"

#include "platform/database/odbc_calls.hpp"
#include "platform/database/utf16.hpp"

namespace kestrel::database {

namespace {

// UTF-16 units of a bound text with its closing zero. Names and addresses are shorter; a memo is asked for once more.
constexpr std::size_t width = 128;
constexpr auto unitBytes = static_cast<SQLLEN>(sizeof(SQLWCHAR));
constexpr SQLLEN longestBound = (static_cast<SQLLEN>(width) - 1) * unitBytes;
constexpr std::size_t firstRows = 4; // tell which columns are read; most answers are no longer

std::u16string_view asText(const SQLWCHAR* units, SQLLEN bytes) {
    return {reinterpret_cast<const char16_t*>(units), static_cast<std::size_t>(bytes / unitBytes)};
}

SQLPOINTER asNumber(std::size_t value) {
    return reinterpret_cast<SQLPOINTER>(value);
}

} // namespace

void Cells::clear() {
    texts.clear();
    ends.clear();
}

void Cells::add(std::u16string_view text) {
    appendUtf8(texts, text);
    ends.push_back({texts.size(), Kind::text});
}

void Cells::add(std::string_view text) {
    texts += text;
    ends.push_back({texts.size(), Kind::text});
}

void Cells::addNull() {
    ends.push_back({texts.size(), Kind::null});
}

void Cells::addAbsent() {
    ends.push_back({texts.size(), Kind::absent});
}

void Cells::copy(const Cells& other, std::size_t index) {
    texts += other.at(index).value_or("");
    ends.push_back({texts.size(), other.ends[index].kind});
}

std::optional<std::string_view> Cells::at(std::size_t index) const {
    if (ends[index].kind != Kind::text) return std::nullopt;
    const std::size_t begin = index == 0 ? 0 : ends[index - 1].byte;
    return std::string_view(texts).substr(begin, ends[index].byte - begin);
}

OdbcFetch::OdbcFetch(OdbcHandle executed, OdbcReading how) : statement(std::move(executed)), reading(how) {
    readNames();
    wanted.resize(columnNames.size());
    places.resize(columnNames.size(), unbound);
}

std::size_t OdbcFetch::rowsInAll() const {
    SQLLEN rows = 0;
    SQLRowCount(statement.get(), &rows);
    return static_cast<std::size_t>(rows);
}

void OdbcFetch::wantAll() {
    wanted.assign(wanted.size(), true);
}

void OdbcFetch::readNames() {
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement.get(), &count);
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        columnNames.push_back(columnName(statement.get(), i, reading.byBytes));
}

// What is bound is not touched before the driver writes there.
void OdbcFetch::bind(std::size_t rows) {
    const bool first = rowsBound == 0;
    rowsBound = rows;
    SQLFreeStmt(statement.get(), SQL_UNBIND);
    SQLSetStmtAttr(statement.get(), SQL_ATTR_ROW_ARRAY_SIZE, asNumber(rows), 0);
    SQLSetStmtAttr(statement.get(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    std::size_t count = 0;
    for (std::size_t i = 0; i < places.size(); ++i) places[i] = first || wanted[i] ? count++ : unbound;
    allBound = count == places.size();
    texts.reset(new SQLWCHAR[count * rows * width]);
    lengths.reset(new SQLLEN[count * rows]);
    for (std::size_t i = 0; i < places.size(); ++i)
        if (isBound(i)) bindColumn(i, places[i]);
}

void OdbcFetch::bindColumn(std::size_t column, std::size_t place) {
    SQLBindCol(statement.get(), static_cast<SQLUSMALLINT>(column + 1), SQL_C_WCHAR, &texts[place * rowsBound * width],
               static_cast<SQLLEN>(width) * unitBytes, &lengths[place * rowsBound]);
}

std::optional<OdbcFailure> OdbcFetch::fetch(Cells& cells) {
    if (reading.inBlocks && rowsBound == 0)
        bind(firstRows);
    else if (reading.inBlocks && (rowsBound == firstRows || !allBound))
        bind(rowsOfBlock);
    fetched = 1; // without a block nobody counts
    const SQLRETURN code = SQLFetch(statement.get());
    bool good = SQL_SUCCEEDED(code);
    for (std::size_t row = 0; good && row < fetched; ++row) good = addRow(cells, row);
    ended = !good || (reading.inBlocks && fetched < rowsBound);
    std::optional<OdbcFailure> failed;
    if (!good && code != SQL_NO_DATA) failed = odbcFailure(SQL_HANDLE_STMT, statement.get(), reading.byBytes);
    if (!good || (ended && allBound)) stop();
    return failed;
}

bool OdbcFetch::fetchCell(Cells& cells, std::size_t row, std::size_t column) {
    return SQL_SUCCEEDED(SQLSetPos(statement.get(), row + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE)) &&
           addAsked(cells, column);
}

void OdbcFetch::stop() {
    statement.free();
    texts.reset();
    lengths.reset();
}

bool OdbcFetch::addRow(Cells& cells, std::size_t row) {
    bool good = true;
    for (std::size_t column = 0; good && column < columnNames.size(); ++column) {
        if (!reading.inBlocks)
            good = addAsked(cells, column);
        else if (isBound(column))
            good = addBound(cells, row, places[column], column);
        else
            cells.addAbsent();
    }
    return good;
}

bool OdbcFetch::addBound(Cells& cells, std::size_t row, std::size_t place, std::size_t column) {
    const std::size_t cell = place * rowsBound + row;
    const SQLLEN bytes = lengths[cell];
    if (bytes == SQL_NULL_DATA) {
        cells.addNull();
        return true;
    }
    if (bytes < 0 || bytes > longestBound) return fetchCell(cells, row, column);
    cells.add(asText(&texts[cell * width], bytes));
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
