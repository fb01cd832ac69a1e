#include "platform/database/sqlite_statements.hpp"

#include <algorithm>

namespace kestrel::database {

static constexpr std::size_t most = 24; // a start and a save together ask fewer different things

sqlite3_stmt* KeptStatements::take(std::string_view sql) {
    const auto found = std::ranges::find(kept, sql, &Kept::text);
    if (found == kept.end()) return nullptr;
    sqlite3_stmt* statement = found->statement;
    kept.erase(found);
    return statement;
}

void KeptStatements::give(sqlite3_stmt* statement) {
    sqlite3_reset(statement);
    kept.push_back({sqlite3_sql(statement), statement});
    if (kept.size() <= most) return;
    sqlite3_finalize(kept.front().statement);
    kept.erase(kept.begin());
}

void KeptStatements::clear() {
    for (const Kept& one : kept) sqlite3_finalize(one.statement);
    kept.clear();
}

} // namespace kestrel::database
