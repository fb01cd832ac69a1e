#include "raw.hpp"

#include <cstdio>
#include <cstdlib>

namespace kestrel::bench {

static void require(bool good, sqlite3* handle, const std::string& what) {
    if (good) return;
    std::fprintf(stderr, "%s: %s\n", what.c_str(), sqlite3_errmsg(handle));
    std::exit(2);
}

RawDatabase::RawDatabase(const std::string& path) {
    require(sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) == SQLITE_OK,
            handle, path);
    sqlite3_busy_timeout(handle, 60000);
    run("PRAGMA synchronous=FULL");
}

sqlite3_stmt* RawDatabase::prepared(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(handle, sql.c_str(), static_cast<int>(sql.size() + 1), &statement, nullptr);
    require(code == SQLITE_OK, handle, sql);
    return statement;
}

void RawDatabase::prepare(const std::string& sql) {
    sqlite3_finalize(prepared(sql));
}

void RawDatabase::run(const std::string& sql) {
    sqlite3_stmt* statement = prepared(sql);
    const int code = sqlite3_step(statement);
    require(code == SQLITE_ROW || code == SQLITE_DONE, handle, sql);
    sqlite3_finalize(statement);
}

} // namespace kestrel::bench
