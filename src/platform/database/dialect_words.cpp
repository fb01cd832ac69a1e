#include "platform/database/dialect_words.hpp"

#include <algorithm>
#include <array>

namespace kestrel::database {

namespace {

// A comma binds more loosely than JOIN everywhere but in SQLite: behind "a, b LEFT JOIN c ON" the condition sees b
// alone. SQLite would take CROSS JOIN for an order of its loops.
constexpr std::string_view comma = ", ", cross = " CROSS JOIN ";

constexpr DialectWords sqlite{.quotesNames = false,
                              .quotesBrackets = true,
                              .limit = LimitForm::limit,
                              .flattensRightJoins = true,
                              .flattensMarks = true,
                              .betweenBases = comma,
                              .like = LikeForm::asItStands,
                              .takesAsBeforeTableAlias = true,
                              .sortsNullsAsGreatest = false,
                              .marksLiteralsAsNational = false};

// It folds the ASCII letters of a bare name, and its LIKE knows letter case and takes the backslash for an escape.
constexpr DialectWords postgresql{.quotesNames = true,
                                  .quotesBrackets = true,
                                  .limit = LimitForm::limit,
                                  .flattensRightJoins = true,
                                  .flattensMarks = true,
                                  .betweenBases = cross,
                                  .like = LikeForm::ilike,
                                  .takesAsBeforeTableAlias = true,
                                  .sortsNullsAsGreatest = true,
                                  .marksLiteralsAsNational = false};

// TOP, brackets and nested joins are its own words. LIKE keeps its bracket sets: on this server they are the pattern
// rule that its users know, and a pattern means there what it means in every other program of theirs. Compared by code
// point it knows letter case. A literal without the N goes through the database's code page, and what that doesn't have
// is lost without a word.
constexpr DialectWords sqlServer{.quotesNames = false,
                                 .quotesBrackets = false,
                                 .limit = LimitForm::top,
                                 .flattensRightJoins = false,
                                 .flattensMarks = true,
                                 .betweenBases = cross,
                                 .like = LikeForm::upper,
                                 .takesAsBeforeTableAlias = true,
                                 .sortsNullsAsGreatest = false,
                                 .marksLiteralsAsNational = true};

// The marks and nested joins are its own words. It folds the letters of a bare name, its LIKE knows letter case, and
// its nulls come last.
constexpr DialectWords oracle{.quotesNames = true,
                              .quotesBrackets = true,
                              .limit = LimitForm::fetchFirst,
                              .flattensRightJoins = false,
                              .flattensMarks = false,
                              .betweenBases = cross,
                              .like = LikeForm::upper,
                              .takesAsBeforeTableAlias = false,
                              .sortsNullsAsGreatest = true,
                              .marksLiteralsAsNational = false};

// In its session mode LIKE has no escape character; compared by code point it knows letter case. Quoted, no name is a
// word of its own.
constexpr DialectWords mariadb{.quotesNames = true,
                               .quotesBrackets = true,
                               .limit = LimitForm::limit,
                               .flattensRightJoins = true,
                               .flattensMarks = true,
                               .betweenBases = cross,
                               .like = LikeForm::upper,
                               .takesAsBeforeTableAlias = true,
                               .sortsNullsAsGreatest = false,
                               .marksLiteralsAsNational = false};

// In alphabetical order.
constexpr auto sqlWords = std::to_array<std::string_view>(
    {"ADD",    "ALL",       "ALTER",  "AND",     "AS",     "ASC",   "BETWEEN",  "BY",      "CASE",      "CAST",
     "COLUMN", "CREATE",    "CROSS",  "DEFAULT", "DELETE", "DESC",  "DISTINCT", "DROP",    "ELSE",      "END",
     "ESCAPE", "EXCEPT",    "EXISTS", "FROM",    "FULL",   "GROUP", "HAVING",   "IN",      "INDEX",     "INNER",
     "INSERT", "INTERSECT", "INTO",   "IS",      "JOIN",   "KEY",   "LEFT",     "LIKE",    "LIMIT",     "NATURAL",
     "NOT",    "NULL",      "ON",     "OR",      "ORDER",  "OUTER", "PERCENT",  "PRIMARY", "RECURSIVE", "RENAME",
     "RIGHT",  "SELECT",    "SET",    "TABLE",   "THEN",   "TO",    "TOP",      "UNION",   "UNIQUE",    "UPDATE",
     "USING",  "VALUES",    "WHEN",   "WHERE",   "WITH"});

constexpr std::size_t longestWord = 9;
static_assert(std::ranges::is_sorted(sqlWords));
static_assert(std::ranges::max(sqlWords, {}, &std::string_view::size).size() == longestWord);

constexpr char upperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

const DialectWords& wordsOf(Dialect dialect) {
    switch (dialect) {
    case Dialect::postgresql:
        return postgresql;
    case Dialect::sqlServer:
        return sqlServer;
    case Dialect::oracle:
        return oracle;
    case Dialect::mariadb:
        return mariadb;
    case Dialect::sqlite:
        break;
    }
    return sqlite;
}

bool isSqlWord(std::string_view word) {
    std::array<char, longestWord> buffer{};
    if (word.size() > buffer.size()) return false;
    std::ranges::transform(word, buffer.begin(), upperAscii);
    return std::ranges::binary_search(sqlWords, std::string_view(buffer.data(), word.size()));
}

} // namespace kestrel::database
