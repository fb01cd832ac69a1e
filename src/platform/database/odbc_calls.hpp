// Inside the engine only: the calls that hand texts to a driver or get them from it. All texts here are UTF-8; on the
// way they are UTF-16, or bytes for a driver that loses characters that way.
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <string>

namespace kestrel::database {

struct OdbcDiagnosis {
    std::string state; // five characters of the standard; empty: the driver says nothing
    int number = 0;
    std::string text; // cut where it is very long
};

SQLRETURN driverConnect(SQLHANDLE connection, const std::string& text, bool byBytes);
SQLRETURN executeText(SQLHANDLE statement, const std::string& sql, bool byBytes);
std::string columnName(SQLHANDLE statement, std::size_t column, bool byBytes); // columns count from 0
OdbcDiagnosis diagnose(SQLSMALLINT kind, SQLHANDLE handle, bool byBytes);

// The next piece of a text of the present row. more: it was not the last one.
struct OdbcPiece {
    SQLRETURN code = SQL_NO_DATA;
    bool null = false, more = false;
};
// Adds the piece to the text: for UTF-16 a pair may be cut in two, so pieces are gathered before they become UTF-8.
OdbcPiece addPiece(SQLHANDLE statement, std::size_t column, std::u16string& text);
OdbcPiece addPiece(SQLHANDLE statement, std::size_t column, std::string& text);

} // namespace kestrel::database
