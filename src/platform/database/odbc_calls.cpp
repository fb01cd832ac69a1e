#include "platform/database/odbc_calls.hpp"

#include "platform/database/utf16.hpp"

#include <algorithm>
#include <array>

namespace kestrel::database {

namespace {

constexpr std::size_t longestName = 256, longestDescription = 4096, pieceSize = 2048;

// A text that the driver wrote, of as many characters as it says, yet of no more than there was room for.
template <class Room> std::size_t lengthIn(const Room& room, long length) {
    return static_cast<std::size_t>(std::clamp<long>(length, 0, static_cast<long>(room.size()) - 1));
}

template <std::size_t size> std::string written(const std::array<SQLWCHAR, size>& room, long units) {
    return utf8({reinterpret_cast<const char16_t*>(room.data()), lengthIn(room, units)});
}

template <std::size_t size> std::string written(const std::array<SQLCHAR, size>& room, long bytes) {
    return {reinterpret_cast<const char*>(room.data()), lengthIn(room, bytes)};
}

SQLWCHAR* units(std::u16string& text) {
    return reinterpret_cast<SQLWCHAR*>(text.data());
}

SQLCHAR* bytes(std::string& text) {
    return reinterpret_cast<SQLCHAR*>(text.data());
}

// Of the ways to ask for a name the one for which no driver looks up what else there is to say of the column.
template <class Unit, class Call> std::string askedName(SQLHANDLE statement, std::size_t column, Call call) {
    std::array<Unit, longestName> name{};
    SQLSMALLINT length = 0; // in bytes
    call(statement, static_cast<SQLUSMALLINT>(column + 1), SQL_DESC_NAME, name.data(),
         static_cast<SQLSMALLINT>(sizeof(name)), &length, nullptr);
    return written(name, length / static_cast<long>(sizeof(Unit)));
}

template <class Unit, class Ask> OdbcDiagnosis diagnosis(SQLSMALLINT kind, SQLHANDLE handle, Ask call) {
    std::array<Unit, 6> state{};
    std::array<Unit, longestDescription> text{};
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(
            call(kind, handle, 1, state.data(), &number, text.data(), static_cast<SQLSMALLINT>(text.size()), &length)))
        return {};
    return {written(state, 5), static_cast<int>(number), written(text, length)};
}

template <class Unit, class Text>
OdbcPiece takePiece(SQLHANDLE statement, std::size_t column, SQLSMALLINT type, Text& text) {
    std::array<Unit, pieceSize> room; // the driver fills it
    SQLLEN length = 0;
    const SQLRETURN code = SQLGetData(statement, static_cast<SQLUSMALLINT>(column + 1), type, room.data(),
                                      static_cast<SQLLEN>(sizeof(room)), &length);
    OdbcPiece piece{code};
    if (!SQL_SUCCEEDED(code)) return piece;
    piece.null = length == SQL_NULL_DATA;
    // Not every driver knows how much there is.
    const auto most = static_cast<SQLLEN>((pieceSize - 1) * sizeof(Unit));
    piece.more = !piece.null && (length < 0 || length > most);
    const auto taken = static_cast<std::size_t>(piece.more ? most : std::max<SQLLEN>(length, 0)) / sizeof(Unit);
    text.append(reinterpret_cast<const typename Text::value_type*>(room.data()), taken);
    return piece;
}

} // namespace

SQLRETURN driverConnect(SQLHANDLE connection, const std::string& text, bool byBytes) {
    std::string narrow = text;
    std::u16string wide = utf16(text);
    return byBytes ? SQLDriverConnect(connection, nullptr, bytes(narrow), static_cast<SQLSMALLINT>(narrow.size()),
                                      nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT)
                   : SQLDriverConnectW(connection, nullptr, units(wide), static_cast<SQLSMALLINT>(wide.size()), nullptr,
                                       0, nullptr, SQL_DRIVER_NOPROMPT);
}

SQLRETURN executeText(SQLHANDLE statement, const std::string& sql, bool byBytes) {
    if (byBytes) {
        std::string narrow = sql;
        return SQLExecDirect(statement, bytes(narrow), static_cast<SQLINTEGER>(narrow.size()));
    }
    std::u16string wide = utf16(sql);
    return SQLExecDirectW(statement, units(wide), static_cast<SQLINTEGER>(wide.size()));
}

std::string columnName(SQLHANDLE statement, std::size_t column, bool byBytes) {
    return byBytes ? askedName<SQLCHAR>(statement, column, SQLColAttribute)
                   : askedName<SQLWCHAR>(statement, column, SQLColAttributeW);
}

OdbcDiagnosis diagnose(SQLSMALLINT kind, SQLHANDLE handle, bool byBytes) {
    return byBytes ? diagnosis<SQLCHAR>(kind, handle, SQLGetDiagRec)
                   : diagnosis<SQLWCHAR>(kind, handle, SQLGetDiagRecW);
}

OdbcPiece addPiece(SQLHANDLE statement, std::size_t column, std::u16string& text) {
    return takePiece<SQLWCHAR>(statement, column, SQL_C_WCHAR, text);
}

OdbcPiece addPiece(SQLHANDLE statement, std::size_t column, std::string& text) {
    return takePiece<SQLCHAR>(statement, column, SQL_C_CHAR, text);
}

} // namespace kestrel::database
