#include "platform/database/statement_form.hpp"

#include "platform/database/tokens.hpp"

#include <algorithm>
#include <vector>

namespace kestrel::database {

namespace {

using Tokens = std::vector<Token>;

bool isSeparator(const Token& token) {
    return isSign(token, ';');
}

// The first word, in front of which parentheses may stand.
const Token* firstWord(const Tokens& tokens) {
    const auto found = std::ranges::find_if(tokens, [](const Token& token) { return !isSign(token, '('); });
    return found == tokens.end() ? nullptr : &*found;
}

bool boundsRows(const Token& token) {
    return isWord(token, "LIMIT") || isWord(token, "FETCH");
}

} // namespace

bool holdsSecondStatement(std::string_view sql) {
    Tokens tokens;
    if (sql.find(';') == sql.npos || !cutTokens(sql, tokens)) return false;
    const auto separator = std::ranges::find_if(tokens, isSeparator);
    return !std::all_of(separator, tokens.end(), isSeparator);
}

bool readsRows(std::string_view sql) {
    Tokens tokens;
    if (!cutTokens(sql, tokens)) return false;
    const Token* first = firstWord(tokens);
    return first && (isWord(*first, "SELECT") || isWord(*first, "WITH") || isWord(*first, "VALUES"));
}

bool limitsRows(std::string_view sql) {
    Tokens tokens;
    if (!cutTokens(sql, tokens) || tokens.size() < 2) return false;
    if (isWord(tokens[1], "TOP")) return true;
    for (std::size_t at = 0; at < tokens.size(); at = isSign(tokens[at], '(') ? tokens[at].partner + 1 : at + 1)
        if (boundsRows(tokens[at])) return true;
    return false;
}

} // namespace kestrel::database
