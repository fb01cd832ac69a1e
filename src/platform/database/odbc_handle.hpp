// Inside the engine only: handles of the ODBC driver manager that free themselves, and its diagnostics.
#pragma once

#include "platform/database/driver_text.hpp"
#include "platform/result.hpp"

#include <sql.h>
#include <sqlext.h>
#include <string>
#include <utility>

namespace kestrel::database {

class OdbcHandle {
public:
    OdbcHandle() = default;
    OdbcHandle(SQLSMALLINT itsKind, SQLHANDLE handle) : kind(itsKind), raw(handle) {}
    OdbcHandle(OdbcHandle&& other) noexcept : kind(other.kind), raw(std::exchange(other.raw, nullptr)) {}
    OdbcHandle& operator=(OdbcHandle&& other) noexcept {
        free();
        kind = other.kind;
        raw = std::exchange(other.raw, nullptr);
        return *this;
    }
    ~OdbcHandle() { free(); }
    SQLHANDLE get() const { return raw; }
    explicit operator bool() const { return raw != nullptr; }
    void free(); // a connection is ended first

private:
    SQLSMALLINT kind = 0;
    SQLHANDLE raw = nullptr;
};

// A failure of the driver: its number, its description as one line, and the class of the trouble.
struct OdbcFailure {
    platform::Failure failure;
    std::string state; // five characters of the standard
};
OdbcFailure odbcFailure(SQLSMALLINT kind, SQLHANDLE handle, bool byBytes); // see DriverText

// Whether a connection on which that failed was lost, or its server went down: it can't be used any more.
bool tellsLoss(SQLHANDLE connection, const OdbcFailure& failure);

// The environment that a connection lives in: of the process, made at the first call. Null when there is no memory.
SQLHANDLE odbcEnvironment();
OdbcHandle newHandle(SQLSMALLINT kind, SQLHANDLE parent);

InstalledDrivers installedDrivers();

// The server's own name for itself.
std::string dbmsName(SQLHANDLE connection);

} // namespace kestrel::database
