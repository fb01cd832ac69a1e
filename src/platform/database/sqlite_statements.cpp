#include "platform/database/sqlite_statements.hpp"

#include "platform/database/names.hpp"

#include <algorithm>

namespace kestrel::database {

namespace {

constexpr std::size_t most = 24; // a start and a save together ask fewer different things

bool isSelect(std::string_view text) {
    constexpr std::string_view word = "SELECT ";
    return sameName(text.substr(0, word.size()), word);
}

} // namespace

sqlite3_stmt* KeptStatements::take(std::string_view sql) {
    const auto found = std::ranges::find(kept, sql, &Kept::text);
    if (found == kept.end()) return nullptr;
    sqlite3_stmt* statement = found->statement;
    kept.erase(found);
    return statement;
}

void KeptStatements::give(sqlite3_stmt* statement) {
    sqlite3_reset(statement);
    const char* text = sqlite3_sql(statement);
    if (!text || !isSelect(text)) {
        sqlite3_finalize(statement);
        return;
    }
    kept.push_back({text, statement});
    if (kept.size() <= most) return;
    sqlite3_finalize(kept.front().statement);
    kept.erase(kept.begin());
}

void KeptStatements::clear() {
    for (const Kept& one : kept) sqlite3_finalize(one.statement);
    kept.clear();
}

} // namespace kestrel::database
