#include "setup/store.hpp"

#include "platform/files.hpp"
#include "setup/words.hpp"

namespace kestrel::setup {

namespace {

Row presentRow(const database::RecordSet& records) {
    Row row;
    for (int i = 0; i < records.columnCount(); ++i) {
        std::string name = records.columnName(i);
        Value value = records.textOrNull(name);
        row.values.emplace_back(std::move(name), std::move(value));
    }
    return row;
}

std::vector<std::string> openings(database::Dialect dialect) {
    std::vector<std::string> statements;
    if (dialect == database::Dialect::sqlite) statements.push_back("PRAGMA synchronous = OFF");
    if (const char* begin = wordsOf(dialect).begin) statements.push_back(begin);
    return statements;
}

Status runAll(Connection& store, const std::vector<std::string>& statements) {
    for (const std::string& sql : statements) {
        if (Status status = store.executeNative(sql); !status) return status;
    }
    return platform::done();
}

} // namespace

std::string databaseFile(const std::string& root, const std::string& name) {
    for (const char* ending : {".accdb", ".mdb"}) {
        const std::string path = root + "/" + name + ending;
        if (platform::entryAt(path)) return path;
    }
    return {};
}

Result<Connection> openStore(const std::string& path) {
    return database::openConnection("Provider=Microsoft.ACE.OLEDB.12.0;Data Source=\"" + path + "\";",
                                    database::Role::beside);
}

Status runTogether(Connection& store, const std::vector<std::string>& statements) {
    if (Status status = runAll(store, openings(store.dialect())); !status) return status;
    if (Status status = runAll(store, statements); !status) {
        (void)store.executeNative("ROLLBACK");
        return status;
    }
    return store.executeNative("COMMIT");
}

Result<Rows> readRows(Connection& store, std::string_view sql) {
    auto records = store.open(sql);
    if (!records) return records.failure();
    Rows rows;
    try {
        for (; !records.value().eof(); records.value().moveNext()) rows.push_back(presentRow(records.value()));
    } catch (const database::DatabaseError& error) {
        return platform::Failure{0, error.what()};
    }
    return rows;
}

Result<std::vector<std::string>> columnNames(Connection& store, std::string_view table) {
    auto records = store.openNative("SELECT * FROM " + quoted(table, wordsOf(store.dialect())) + " WHERE 1 = 0");
    if (!records) return records.failure();
    std::vector<std::string> names;
    for (int i = 0; i < records.value().columnCount(); ++i) names.push_back(records.value().columnName(i));
    return names;
}

Status changeStore(const std::string& path, const std::vector<std::string>& statements) {
    auto store = openStore(path);
    return store ? runTogether(store.value(), statements) : Status(store.failure());
}

Result<Rows> readStore(const std::string& path, std::string_view sql) {
    auto store = openStore(path);
    return store ? readRows(store.value(), sql) : Result<Rows>(store.failure());
}

} // namespace kestrel::setup
