#include "setup/store.hpp"

#include <sqlite3.h>

#include <memory>

namespace kestrel::setup {

namespace {

struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Handle = std::unique_ptr<sqlite3, Closer>;
using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

platform::Failure failure(sqlite3* handle) {
    return {sqlite3_errcode(handle), sqlite3_errmsg(handle)};
}

Result<Handle> openFile(const std::string& path, int flags) {
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &raw, flags, nullptr);
    Handle handle(raw);
    if (code != SQLITE_OK) return failure(raw);
    return handle;
}

Status run(sqlite3* handle, const std::string& sql) {
    if (sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) return failure(handle);
    return platform::done();
}

Status runAll(sqlite3* handle, const std::vector<std::string>& statements) {
    std::vector<std::string> all{"PRAGMA synchronous = OFF", "BEGIN"};
    all.insert(all.end(), statements.begin(), statements.end());
    all.push_back("COMMIT");
    for (const std::string& sql : all) {
        if (Status status = run(handle, sql); !status) return status;
    }
    return platform::done();
}

Result<Statement> prepared(sqlite3* handle, std::string_view sql) {
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(handle, sql.data(), static_cast<int>(sql.size()), &raw, nullptr) != SQLITE_OK) {
        return failure(handle);
    }
    return Statement(raw);
}

Row presentRow(sqlite3_stmt* statement) {
    Row row;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        row.values.emplace_back(sqlite3_column_name(statement, i), text ? Value(text) : Value());
    }
    return row;
}

} // namespace

Status createStore(const std::string& path, const std::vector<std::string>& statements) {
    auto handle = openFile(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (!handle) return handle.failure();
    if (Status status = run(handle.value().get(), "PRAGMA journal_mode = WAL"); !status) return status;
    return runAll(handle.value().get(), statements);
}

Status changeStore(const std::string& path, const std::vector<std::string>& statements) {
    auto handle = openFile(path, SQLITE_OPEN_READWRITE);
    return handle ? runAll(handle.value().get(), statements) : handle.failure();
}

Result<Rows> readStore(const std::string& path, std::string_view sql) {
    auto handle = openFile(path, SQLITE_OPEN_READWRITE);
    if (!handle) return handle.failure();
    auto statement = prepared(handle.value().get(), sql);
    if (!statement) return statement.failure();
    Rows rows;
    int code = SQLITE_DONE;
    while ((code = sqlite3_step(statement.value().get())) == SQLITE_ROW)
        rows.push_back(presentRow(statement.value().get()));
    if (code != SQLITE_DONE) return failure(handle.value().get());
    return rows;
}

Result<std::vector<std::string>> columnsInStore(const std::string& path, std::string_view table) {
    auto handle = openFile(path, SQLITE_OPEN_READWRITE);
    if (!handle) return handle.failure();
    auto statement = prepared(handle.value().get(), "SELECT * FROM " + std::string(table) + " WHERE 1 = 0");
    if (!statement) return statement.failure();
    std::vector<std::string> names;
    for (int i = 0; i < sqlite3_column_count(statement.value().get()); ++i) {
        names.emplace_back(sqlite3_column_name(statement.value().get(), i));
    }
    return names;
}

} // namespace kestrel::setup
