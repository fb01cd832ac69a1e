#include "setup/words.hpp"

#include <algorithm>
#include <iterator>

namespace kestrel::setup {

using database::Dialect;

namespace {

// The embedded engine gives a table its columns' affinities and no limits.
constexpr Words sqlite{.dialect = Dialect::sqlite,
                       .text = "TEXT",
                       .keyText = "TEXT",
                       .integer = "INTEGER",
                       .number = "NUMERIC",
                       .nameQuotes = "",
                       .joinedColumn = "TEXT GENERATED ALWAYS AS (%) VIRTUAL",
                       .joinedPart = "ifnull(%,'')",
                       .joint = "||",
                       .tableEnd = "",
                       .textOpening = "'",
                       .rowsOfOneInsert = 100,
                       .nullsInIndex = "",
                       .partsOfText = nullptr,
                       .middleware = "ACCESS",
                       .begin = "BEGIN",
                       .objects = "SELECT name FROM sqlite_master WHERE type IN ('table','view')"};

// The order of text is that of the database, which is made with the locale C.UTF-8. An index serves an order only when
// its nulls stand where the order has them, and the program's orders have them in front.
constexpr Words postgresql{.dialect = Dialect::postgresql,
                           .text = "text",
                           .keyText = "text",
                           .integer = "integer",
                           .number = "numeric",
                           .nameQuotes = "\"\"",
                           .joinedColumn = "text GENERATED ALWAYS AS (%) STORED",
                           .joinedPart = "coalesce(%,'')",
                           .joint = "||",
                           .tableEnd = "",
                           .textOpening = "'",
                           .rowsOfOneInsert = 500,
                           .nullsInIndex = " NULLS FIRST",
                           .partsOfText = "% gin_trgm_ops",
                           .middleware = "POSTGRESQL",
                           .begin = "BEGIN",
                           .objects = "SELECT relname AS name FROM pg_class WHERE relkind IN ('r','p','v','m','f') "
                                      "AND relnamespace = (SELECT oid FROM pg_namespace WHERE nspname = "
                                      "current_schema())"};

// A text of more than 4000 characters would be read in pieces, which takes a trip to the server for each.
constexpr Words sqlServer{.dialect = Dialect::sqlServer,
                          .text = "nvarchar(4000) COLLATE Latin1_General_100_BIN2",
                          .keyText = "nvarchar(100) COLLATE Latin1_General_100_BIN2",
                          .integer = "int",
                          .number = "decimal(19,4)",
                          .nameQuotes = "[]",
                          .joinedColumn = "AS (%) PERSISTED",
                          .joinedPart = "coalesce(%,N'')",
                          .joint = "+",
                          .tableEnd = "",
                          .textOpening = "N'",
                          .rowsOfOneInsert = 500,
                          .nullsInIndex = "",
                          .partsOfText = nullptr,
                          .middleware = "SQLSERVER",
                          .begin = "BEGIN TRANSACTION",
                          .objects = "SELECT name FROM sys.objects WHERE type IN ('U','V') AND schema_id = "
                                     "SCHEMA_ID()"};

// An empty text is a null here, and a null in a join is nothing: no word is needed for it.
constexpr Words oracle{.dialect = Dialect::oracle,
                       .text = "VARCHAR2(4000)",
                       .keyText = "VARCHAR2(100 CHAR)",
                       .integer = "NUMBER(10)",
                       .number = "NUMBER",
                       .nameQuotes = "\"\"",
                       .joinedColumn = "GENERATED ALWAYS AS (%) VIRTUAL",
                       .joinedPart = "%",
                       .joint = "||",
                       .tableEnd = "",
                       .textOpening = "'",
                       .rowsOfOneInsert = 1,
                       .nullsInIndex = "",
                       .partsOfText = nullptr,
                       .middleware = "ORACLE",
                       .begin = nullptr,
                       .objects = "SELECT object_name AS \"name\" FROM user_objects WHERE object_type IN "
                                  "('TABLE','VIEW')"};

// The collation without padding tells a closing blank from none, as the others do.
constexpr Words mariadb{.dialect = Dialect::mariadb,
                        .text = "mediumtext",
                        .keyText = "varchar(100)",
                        .integer = "int",
                        .number = "decimal(19,4)",
                        .nameQuotes = "\"\"",
                        .joinedColumn = "mediumtext GENERATED ALWAYS AS (concat(%)) STORED",
                        .joinedPart = "coalesce(%,'')",
                        .joint = ",",
                        .tableEnd = " CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin",
                        .textOpening = "'",
                        .rowsOfOneInsert = 500,
                        .nullsInIndex = "",
                        .partsOfText = nullptr,
                        .middleware = "MARIADB",
                        .begin = "BEGIN",
                        .objects = "SELECT table_name AS name FROM information_schema.tables WHERE table_schema = "
                                   "DATABASE()"};

constexpr const Words* families[] = {&sqlite, &postgresql, &sqlServer, &oracle, &mariadb};

} // namespace

const Words& wordsOf(Dialect dialect) {
    return **std::ranges::find(families, dialect, [](const Words* words) { return words->dialect; });
}

std::string quoted(std::string_view name, const Words& words) {
    if (words.nameQuotes.empty()) return std::string(name);
    return words.nameQuotes.front() + std::string(name) + words.nameQuotes.back();
}

std::string literal(std::optional<std::string_view> value, const Words& words) {
    if (!value) return "NULL";
    std::string text = words.textOpening;
    for (const char c : *value) text.append(c == '\'' ? 2 : 1, c);
    return text + "'";
}

std::string filledPattern(std::string_view pattern, std::string_view text) {
    std::string result;
    for (const char c : pattern) {
        if (c == '%') {
            result += text;
        } else {
            result += c;
        }
    }
    return result;
}

} // namespace kestrel::setup
