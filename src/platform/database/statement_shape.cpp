#include "platform/database/statement_shape.hpp"

#include "platform/database/selects.hpp"

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace kestrel::database {

namespace {

using Tokens = std::vector<Token>;

// The tokens of a text that closes, or none.
Tokens tokensOf(std::string_view sql) {
    Tokens tokens;
    if (!cutTokens(sql, tokens)) tokens.clear();
    return tokens;
}

std::size_t find(const Tokens& tokens, std::size_t at, std::initializer_list<std::string_view> words) {
    while (at < tokens.size() && !isOneOf(tokens[at], words)) at = behind(tokens, at);
    return at;
}

// The first word that says what the statement does: the one behind WITH …, in parentheses or not.
std::size_t findVerb(const Tokens& tokens) {
    std::size_t at = 0;
    while (at < tokens.size() && isSign(tokens[at], '(')) ++at;
    if (at < tokens.size() && isWord(tokens[at], "WITH"))
        at = find(tokens, at, {"SELECT", "VALUES", "INSERT", "UPDATE", "DELETE", "MERGE"});
    return at;
}

// Not one member of several: (SELECT …) UNION (SELECT …)
bool isWhole(const Tokens& tokens) {
    return !isSign(tokens.front(), '(') || tokens.front().partner + 1 == tokens.size();
}

bool isFollowedByCount(const Tokens& tokens, std::size_t at) {
    return at + 1 < tokens.size() && isCount(tokens[at + 1]);
}

// LIMIT n or FETCH FIRST n on the level of that SELECT: behind a compound one it bounds the whole.
bool endsWithLimit(const Tokens& tokens, std::size_t select) {
    for (std::size_t at = select; at < tokens.size(); at = behind(tokens, at)) {
        if (isWord(tokens[at], "LIMIT") && isFollowedByCount(tokens, at)) return true;
        if (isWord(tokens[at], "FETCH") && at + 1 < tokens.size() && isOneOf(tokens[at + 1], {"FIRST", "NEXT"}) &&
            isFollowedByCount(tokens, at + 1))
            return true;
    }
    return false;
}

} // namespace

bool holdsSecondStatement(std::string_view sql) {
    if (sql.find(';') == sql.npos) return false;
    const Tokens tokens = tokensOf(sql);
    auto isEnd = [](const Token& token) { return isSign(token, ';'); };
    auto end = std::ranges::find_if(tokens, isEnd);
    return !std::all_of(end, tokens.end(), isEnd);
}

bool readsRows(std::string_view sql) {
    const Tokens tokens = tokensOf(sql);
    const std::size_t verb = findVerb(tokens);
    return verb < tokens.size() && isOneOf(tokens[verb], {"SELECT", "VALUES"});
}

bool limitsRows(std::string_view sql) {
    const Tokens tokens = tokensOf(sql);
    const std::size_t verb = findVerb(tokens);
    if (verb == tokens.size() || !isWord(tokens[verb], "SELECT") || !isWhole(tokens)) return false;
    return !readSelect(tokens, verb, tokens.size()).limit.empty() || endsWithLimit(tokens, verb);
}

} // namespace kestrel::database
