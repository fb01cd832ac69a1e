#include "raw.hpp"

#include <cstdio>
#include <cstdlib>

namespace kestrel::bench {

RawDatabase::RawDatabase(const std::string& path) {
    if (sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK)
        end(path);
    sqlite3_busy_timeout(handle, 60000);
    run("PRAGMA synchronous=FULL");
}

sqlite3_stmt* RawDatabase::prepared(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(handle, sql.c_str(), static_cast<int>(sql.size() + 1), &statement, nullptr);
    if (code != SQLITE_OK) end(sql);
    return statement;
}

void RawDatabase::prepare(const std::string& sql) {
    sqlite3_finalize(prepared(sql));
}

void RawDatabase::run(const std::string& sql) {
    sqlite3_stmt* statement = prepared(sql);
    const int code = sqlite3_step(statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE) end(sql);
    sqlite3_finalize(statement);
}

static std::vector<int> placesOf(sqlite3_stmt* statement, const std::vector<std::string>& columns) {
    std::vector<int> places;
    for (const std::string& column : columns)
        for (int place = 0; place < sqlite3_column_count(statement); ++place)
            if (column == sqlite3_column_name(statement, place)) places.push_back(place);
    return places;
}

RawDatabase::Read RawDatabase::readAll(const std::string& sql, const std::vector<std::string>& columns) {
    sqlite3_stmt* statement = prepared(sql);
    const std::vector<int> places = placesOf(statement, columns);
    Read read;
    for (; sqlite3_step(statement) == SQLITE_ROW; ++read.rows)
        for (int place : places)
            if (sqlite3_column_text(statement, place))
                read.bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement, place));
    if (sqlite3_finalize(statement) != SQLITE_OK) end(sql);
    return read;
}

std::string RawDatabase::plan(const std::string& sql) {
    constexpr int words = 3;
    sqlite3_stmt* statement = prepared("EXPLAIN QUERY PLAN " + sql);
    std::string plan;
    while (sqlite3_step(statement) == SQLITE_ROW)
        plan += std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, words))) + "\n";
    sqlite3_finalize(statement);
    return plan;
}

void RawDatabase::end(const std::string& what) {
    std::fprintf(stderr, "%s: %s\n", what.c_str(), sqlite3_errmsg(handle));
    std::exit(2);
}

} // namespace kestrel::bench
