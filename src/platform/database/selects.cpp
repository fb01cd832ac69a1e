#include "platform/database/selects.hpp"

#include <algorithm>

namespace kestrel::database {

namespace {

using Tokens = std::span<const Token>;

std::size_t endOfSelect(Tokens tokens, std::size_t at, std::size_t end) {
    for (; at < end; at = behind(tokens, at))
        if (isSign(tokens[at], ')') || isSign(tokens[at], ';') || joinsSelects(tokens[at])) break;
    return at;
}

// The limit of a compound SELECT would bound all its members: there TOP isn't understood.
bool isCompound(Tokens tokens, const Select& select) {
    bool goesOn = select.end < tokens.size() && joinsSelects(tokens[select.end]);
    return goesOn ||
           (select.begin > 0 && (joinsSelects(tokens[select.begin - 1]) || isWord(tokens[select.begin - 1], "ALL")));
}

void findTop(Tokens tokens, Select& select) {
    std::size_t at = select.begin + 1;
    if (at < select.end && isOneOf(tokens[at], {"DISTINCT", "ALL"})) ++at;
    select.columns = at;
    if (at + 2 >= select.end || !isWord(tokens[at], "TOP") || !isCount(tokens[at + 1])) return;
    if (isOneOf(tokens[at + 2], {"PERCENT", "WITH"}) || isCompound(tokens, select)) return;
    select.top = at;
    select.columns = at + 2;
    select.limit = tokens[at + 1].text;
}

void findClauses(Tokens tokens, Select& select) {
    auto find = [&](std::size_t at, std::initializer_list<std::string_view> words) {
        while (at < select.end && !isOneOf(tokens[at], words)) at = behind(tokens, at);
        return at;
    };
    select.from = find(select.columns, {"FROM"});
    select.where = select.fromEnd = find(select.from, {"WHERE", "GROUP", "HAVING", "ORDER", "LIMIT", "WINDOW"});
    select.whereEnd = select.fromEnd;
    if (select.where < select.end && isWord(tokens[select.where], "WHERE"))
        select.whereEnd = find(select.where, {"GROUP", "HAVING", "ORDER", "LIMIT", "WINDOW"});
}

} // namespace

bool isOneOf(const Token& token, std::initializer_list<std::string_view> upperCase) {
    return token.kind == TokenKind::word &&
           std::ranges::any_of(upperCase, [&](std::string_view word) { return isWord(token, word); });
}

bool isCount(const Token& token) {
    return token.kind == TokenKind::number && token.text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool joinsSelects(const Token& token) {
    return isOneOf(token, {"UNION", "EXCEPT", "INTERSECT"});
}

std::size_t behind(Tokens tokens, std::size_t at) {
    return isSign(tokens[at], '(') ? tokens[at].partner + 1 : at + 1;
}

Select readSelect(Tokens tokens, std::size_t begin, std::size_t end) {
    Select select;
    select.begin = begin;
    select.end = endOfSelect(tokens, begin, end);
    findTop(tokens, select);
    findClauses(tokens, select);
    return select;
}

} // namespace kestrel::database
