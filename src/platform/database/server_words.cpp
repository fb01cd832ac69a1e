#include "platform/database/server_words.hpp"

#include "platform/database/names.hpp"

#include <algorithm>
#include <array>

namespace kestrel::database {

namespace {

// psqlODBC's SQL_ATTR_PGOPT_USE_DECLAREFETCH: without it the driver holds a whole result before the first row is seen.
constexpr int useDeclareFetch = 65539;

// The fraction: whoever reads a list on a PostgreSQL reads all of it, so a cursor isn't to be planned for its first
// rows. The draws of all programs of the suite on one server stand in one line; they are short.
const std::array rows{
    ServerWords{Dialect::postgresql,
                {"PostgreSQL"},
                {"SET client_encoding = 'UTF8'", "SET lock_timeout = {waiting}", "SET statement_timeout = {running}",
                 "SET standard_conforming_strings = on", "SET cursor_tuple_fraction = 1",
                 "SET default_transaction_isolation = 'read committed'"},
                "SELECT relname, attname FROM pg_attribute JOIN pg_class ON pg_class.oid = attrelid "
                "WHERE attnotnull AND attnum > 0 AND relkind IN ('r', 'p', 'f') AND pg_table_is_visible(attrelid) "
                "AND relnamespace <> 'pg_catalog'::regnamespace",
                {"SELECT pg_advisory_xact_lock(hashtext('number registers'))"},
                "",
                useDeclareFetch,
                true,
                true,
                " LIMIT "},
    // An error behind the first answer of a text is only seen by who asks for the further ones, so the draw's refusal
    // is an answer, and nothing answers before it.
    ServerWords{
        Dialect::sqlServer,
        {"Microsoft SQL Server"},
        {"SET LOCK_TIMEOUT {waiting}"},
        "",
        {"SET NOCOUNT ON; DECLARE @taken int; EXEC @taken = sp_getapplock @Resource = 'number registers', @LockMode = "
         "'Exclusive', @LockOwner = 'Session', @LockTimeout = {waiting}; SELECT CASE WHEN @taken < 0 THEN 0 ELSE 1 "
         "END"},
        "EXEC sp_releaseapplock @Resource = 'number registers', @LockOwner = 'Session'"},
    // What language the person's computer speaks must change neither the order of texts nor the point in a number.
    ServerWords{Dialect::oracle,
                {"Oracle"},
                {"ALTER SESSION SET NLS_COMP = BINARY NLS_SORT = BINARY NLS_NUMERIC_CHARACTERS = '.,'"},
                "SELECT table_name, column_name FROM user_tab_columns WHERE nullable = 'N'",
                {"LOCK TABLE \"A番号情報\" IN EXCLUSIVE MODE WAIT {seconds}"},
                ""},
    ServerWords{Dialect::mariadb,
                {"MariaDB", "MySQL"},
                {"SET SESSION sql_mode = 'ANSI_QUOTES,NO_BACKSLASH_ESCAPES,PIPES_AS_CONCAT,STRICT_ALL_TABLES'",
                 "SET SESSION innodb_lock_wait_timeout = {seconds}",
                 "SET SESSION collation_connection = 'utf8mb4_nopad_bin'"},
                "",
                {"SELECT COALESCE(GET_LOCK('number registers', {seconds}), 0)"},
                "SELECT RELEASE_LOCK('number registers')",
                0,
                false},
};

// A server that nobody here knows gets the suite's statements and nothing else.
const ServerWords unknown{Dialect::postgresql, {}, {}, "", {}, ""};

bool beginsWith(std::string_view text, std::string_view beginning) {
    return text.size() >= beginning.size() && sameName(text.substr(0, beginning.size()), beginning);
}

void replaceAll(std::string& text, std::string_view mark, const std::string& value) {
    for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at + value.size()))
        text.replace(at, mark.size(), value);
}

// At least one: to the servers 0 means for ever, or not at all.
std::string atLeastOne(int value) {
    return std::to_string(std::max(value, 1));
}

} // namespace

const ServerWords& serverWords(std::string_view dbmsName) {
    const auto found = std::ranges::find_if(rows, [&](const ServerWords& row) {
        return std::ranges::any_of(row.names, [&](std::string_view name) { return beginsWith(dbmsName, name); });
    });
    return found != rows.end() ? *found : unknown;
}

std::string filledWords(std::string_view words, int waitingSeconds, int runningSeconds) {
    std::string text(words);
    replaceAll(text, "{waiting}", atLeastOne(waitingSeconds * 1000));
    replaceAll(text, "{running}", std::to_string(runningSeconds * 1000));
    replaceAll(text, "{seconds}", atLeastOne(waitingSeconds));
    return text;
}

} // namespace kestrel::database
