#include "setup/main_database.hpp"

#include "setup/definition.hpp"

#include <algorithm>

namespace kestrel::setup {

using database::Dialect;

namespace {

void append(std::vector<std::string>& statements, std::vector<std::string> more) {
    for (std::string& sql : more) statements.push_back(std::move(sql));
}

// Indexes of parts of texts come last: made over all rows at once they cost a fraction.
std::vector<std::string> fillStatements(Connection& store, const Rows& rows) {
    std::vector<std::string> statements = createStatements("main", store.dialect());
    append(statements, insertStatements("main", rows, store.dialect()));
    if (searchesAreIndexed(store)) append(statements, searchStatements("main", store.dialect()));
    return statements;
}

// Some servers keep each table as soon as it is made, whatever becomes of the rest.
void takeAway(Connection& store) {
    if (const auto left = ownTables(store)) (void)dropTables(store, left.value());
}

} // namespace

Status fillMainDatabase(Connection& store, const Rows& rows) {
    if (Status status = refuseOwnTables(store); !status) return status;
    allowSearches(store);
    Status status = runTogether(store, fillStatements(store, rows));
    if (!status) takeAway(store);
    return status;
}

void allowSearches(Connection& store) {
    if (store.dialect() == Dialect::postgresql) {
        (void)store.executeNative("CREATE EXTENSION IF NOT EXISTS pg_trgm");
    }
}

bool searchesAreIndexed(Connection& store) {
    if (store.dialect() != Dialect::postgresql) return true;
    const auto found = store.openNative("SELECT 1 AS found FROM pg_extension WHERE extname = 'pg_trgm'");
    return found && !found.value().eof();
}

Result<std::vector<std::string>> presentTables(Connection& store) {
    auto records = store.openNative(wordsOf(store.dialect()).objects);
    if (!records) return records.failure();
    std::vector<std::string> names;
    try {
        for (; !records.value().eof(); records.value().moveNext()) names.push_back(records.value().text("name"));
    } catch (const database::DatabaseError& error) {
        return platform::Failure{0, error.what()};
    }
    return names;
}

Result<std::vector<std::string>> ownTables(Connection& store) {
    const auto present = presentTables(store);
    if (!present) return present.failure();
    std::vector<std::string> own;
    for (const Table& table : tables()) {
        const bool found = std::ranges::find(present.value(), table.name) != present.value().end();
        if (table.database == "main" && found) own.push_back(table.name);
    }
    return own;
}

Status refuseOwnTables(Connection& store) {
    const auto present = ownTables(store);
    if (!present) return present.failure();
    if (present.value().empty()) return platform::done();
    return platform::Failure{0,
                             "the database already has the table " + present.value().front() + "; nothing was changed"};
}

Status dropTables(Connection& store, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        if (Status status = store.executeNative(dropStatement(name, store.dialect())); !status) return status;
    }
    return platform::done();
}

} // namespace kestrel::setup
