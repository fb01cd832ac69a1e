#include "platform/database/odbc_handle.hpp"

#include "platform/database/odbc_calls.hpp"
#include "platform/database/utf16.hpp"

#include <algorithm>
#include <array>

namespace kestrel::database {

namespace {

// A text that the driver manager wrote, of as many units as it says, yet of no more than there was room for.
template <std::size_t size> std::string written(const std::array<SQLWCHAR, size>& room, long units) {
    const auto length = static_cast<std::size_t>(std::clamp<long>(units, 0, static_cast<long>(size) - 1));
    return utf8({reinterpret_cast<const char16_t*>(room.data()), length});
}

// Drivers end their descriptions with line feeds, and break them in the midst.
std::string asOneLine(std::string text) {
    const auto breaks = [](char c) { return c == '\n' || c == '\r' || c == '\t'; };
    std::ranges::replace_if(text, breaks, ' ');
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

void readSources(InstalledDrivers& installed) {
    std::array<SQLWCHAR, 256> name{}, driver{};
    SQLSMALLINT nameLength = 0, driverLength = 0;
    SQLUSMALLINT which = SQL_FETCH_FIRST;
    while (SQL_SUCCEEDED(SQLDataSourcesW(odbcEnvironment(), which, name.data(), name.size(), &nameLength, driver.data(),
                                         driver.size(), &driverLength))) {
        installed.sources.push_back({written(name, nameLength), written(driver, driverLength)});
        which = SQL_FETCH_NEXT;
    }
}

void readDrivers(InstalledDrivers& installed) {
    std::array<SQLWCHAR, 256> name{};
    std::array<SQLWCHAR, 1024> attributes{};
    SQLSMALLINT nameLength = 0, attributesLength = 0;
    SQLUSMALLINT which = SQL_FETCH_FIRST;
    while (SQL_SUCCEEDED(SQLDriversW(odbcEnvironment(), which, name.data(), name.size(), &nameLength, attributes.data(),
                                     attributes.size(), &attributesLength))) {
        installed.drivers.push_back(written(name, nameLength));
        which = SQL_FETCH_NEXT;
    }
}

} // namespace

void OdbcHandle::free() {
    if (!raw) return;
    if (kind == SQL_HANDLE_DBC) SQLDisconnect(raw);
    SQLFreeHandle(kind, raw);
    raw = nullptr;
}

OdbcFailure odbcFailure(SQLSMALLINT kind, SQLHANDLE handle, bool byBytes) {
    OdbcDiagnosis diagnosis = diagnose(kind, handle, byBytes);
    if (diagnosis.state.empty()) return {{0, "the driver doesn't say what is wrong"}, "HY000"};
    return {{diagnosis.number, asOneLine(std::move(diagnosis.text))}, std::move(diagnosis.state)};
}

// 08 is the standard's state for it; yet many a driver has one of its own, and only answers when it is asked.
bool tellsLoss(SQLHANDLE connection, const OdbcFailure& failure) {
    if (failure.state.starts_with("08")) return true;
    SQLUINTEGER dead = SQL_CD_FALSE;
    const SQLRETURN code = SQLGetConnectAttrW(connection, SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
    return SQL_SUCCEEDED(code) && dead == SQL_CD_TRUE;
}

SQLHANDLE odbcEnvironment() {
    static const OdbcHandle environment = [] {
        OdbcHandle made = newHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
        if (made) SQLSetEnvAttr(made.get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        return made;
    }();
    return environment.get();
}

OdbcHandle newHandle(SQLSMALLINT kind, SQLHANDLE parent) {
    SQLHANDLE raw = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &raw))) return {};
    return {kind, raw};
}

InstalledDrivers installedDrivers() {
    InstalledDrivers installed;
    readDrivers(installed);
    readSources(installed);
    return installed;
}

std::string dbmsName(SQLHANDLE connection) {
    std::array<SQLWCHAR, 128> name{};
    SQLSMALLINT bytes = 0;
    SQLGetInfoW(connection, SQL_DBMS_NAME, name.data(), sizeof(name), &bytes);
    return written(name, bytes / static_cast<long>(sizeof(SQLWCHAR)));
}

} // namespace kestrel::database
