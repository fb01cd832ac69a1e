#include "platform/database/odbc_rows.hpp"

#include "platform/database/odbc_calls.hpp"
#include "platform/database/utf16.hpp"

namespace kestrel::database {

namespace {

// UTF-16 units of a bound text with its closing zero. Names and addresses are shorter; a memo is asked for once more.
constexpr std::size_t width = 128;
constexpr auto unitBytes = static_cast<SQLLEN>(sizeof(SQLWCHAR));
constexpr SQLLEN longestBound = (static_cast<SQLLEN>(width) - 1) * unitBytes;

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

OdbcFetch::OdbcFetch(OdbcHandle executed, OdbcReading how) : statement(std::move(executed)), reading(how) {
    readNames();
    if (reading.inBlocks) bind();
}

void OdbcFetch::readNames() {
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement.get(), &count);
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        columnNames.push_back(columnName(statement.get(), i, reading.byBytes));
}

// What is bound is not touched before the driver writes there, so that a read of one row doesn't pay for a block.
void OdbcFetch::bind() {
    SQLSetStmtAttr(statement.get(), SQL_ATTR_ROW_ARRAY_SIZE, asNumber(rowsOfBlock), 0);
    SQLSetStmtAttr(statement.get(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    for (std::size_t i = 0; i < columnNames.size(); ++i) {
        columns.push_back({std::unique_ptr<SQLWCHAR[]>(new SQLWCHAR[rowsOfBlock * width]),
                           std::unique_ptr<SQLLEN[]>(new SQLLEN[rowsOfBlock])});
        SQLBindCol(statement.get(), static_cast<SQLUSMALLINT>(i + 1), SQL_C_WCHAR, columns[i].texts.get(),
                   static_cast<SQLLEN>(width) * unitBytes, columns[i].lengths.get());
    }
}

std::optional<OdbcFailure> OdbcFetch::fetch(Cells& cells) {
    fetched = 1; // without a block nobody counts
    const SQLRETURN code = SQLFetch(statement.get());
    bool good = SQL_SUCCEEDED(code);
    for (std::size_t row = 0; good && row < fetched; ++row) good = addRow(cells, row);
    const bool last = !columns.empty() && fetched < rowsOfBlock;
    std::optional<OdbcFailure> failed;
    if (!good && code != SQL_NO_DATA) failed = odbcFailure(SQL_HANDLE_STMT, statement.get(), reading.byBytes);
    if (!good || last) stop();
    return failed;
}

void OdbcFetch::stop() {
    statement.free();
    columns.clear();
}

bool OdbcFetch::addRow(Cells& cells, std::size_t row) {
    bool good = true;
    for (std::size_t column = 0; good && column < columnNames.size(); ++column)
        good = columns.empty() ? addAsked(cells, column) : addBound(cells, row, column);
    return good;
}

bool OdbcFetch::addBound(Cells& cells, std::size_t row, std::size_t column) {
    const SQLLEN bytes = columns[column].lengths[row];
    if (bytes == SQL_NULL_DATA) {
        cells.addNull();
        return true;
    }
    if (bytes >= 0 && bytes <= longestBound) {
        cells.add(asText(&columns[column].texts[row * width], bytes));
        return true;
    }
    return SQL_SUCCEEDED(SQLSetPos(statement.get(), row + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE)) &&
           addAsked(cells, column);
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
