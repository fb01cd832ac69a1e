// What stands behind a dot or AS is a name whatever it is called (CREATE TABLE … AS SELECT aside). Elsewhere a word of
// the grammar is none, nor is a word in front of a parenthesis: that is a function, but where the name of a table has
// to stand.
#include "platform/database/bare_names.hpp"

#include "platform/database/dialect_words.hpp"
#include "platform/database/joins.hpp"

#include <algorithm>
#include <array>

namespace kestrel::database {

namespace {

using Tokens = std::span<const Token>;

// INSERT INTO name (…), WITH name (…) AS
constexpr auto beforeTableName = std::to_array<std::string_view>({"INTO", "WITH", "RECURSIVE"});

bool needsTableBehind(const Token& token) {
    return std::ranges::any_of(beforeTableName, [&](std::string_view word) { return isWord(token, word); });
}

// CAST(… AS type)
bool standsInCast(Tokens tokens, std::size_t at) {
    while (at > 0) {
        --at;
        if (isSign(tokens[at], ')'))
            at = tokens[at].partner;
        else if (isSign(tokens[at], '('))
            return at > 0 && isWord(tokens[at - 1], "CAST");
    }
    return false;
}

bool standsBeforeArguments(Tokens tokens, std::size_t at) {
    return at + 1 < tokens.size() && isSign(tokens[at + 1], '(') && !isMark(tokens, at + 1);
}

// N'…', E'…'
bool belongsToLiteral(Tokens tokens, std::size_t at) {
    return at + 1 < tokens.size() && tokens[at + 1].kind == TokenKind::literal &&
           tokens[at].text.data() + tokens[at].text.size() == tokens[at + 1].text.data();
}

} // namespace

bool holdsMoreThanAscii(std::string_view text) {
    return std::ranges::any_of(text, [](char c) { return (c & 0x80) != 0; });
}

bool isBareName(Tokens tokens, std::size_t at) {
    const Token& token = tokens[at];
    if (token.kind != TokenKind::word) return false;
    if (at > 0 && isSign(tokens[at - 1], '.')) return true;
    if (at > 0 && isWord(tokens[at - 1], "AS")) return !isWord(token, "SELECT") && !standsInCast(tokens, at);
    if (!holdsMoreThanAscii(token.text) && (isSqlWord(token.text) || belongsToLiteral(tokens, at))) return false;
    return !standsBeforeArguments(tokens, at) || (at > 0 && needsTableBehind(tokens[at - 1]));
}

} // namespace kestrel::database
