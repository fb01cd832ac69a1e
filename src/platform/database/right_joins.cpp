// X RIGHT JOIN Y ON c is the same as Y LEFT JOIN X ON c. Y may be a chain itself, for joins bind from the left; X must
// be one table, else its own join would have to stand in parentheses.
#include "platform/database/joins.hpp"

#include <algorithm>
#include <array>

namespace kestrel::database {

namespace {

using Tokens = std::span<const Token>;

enum class JoinKind { none, inner, left, right };

struct Reader {
    Tokens tokens;
    std::size_t at = 0, end = 0;

    bool word(std::string_view upperCase) const { return at < end && isWord(tokens[at], upperCase); }
    bool sign(char c) const { return at < end && isSign(tokens[at], c); }
    bool takeWord(std::string_view upperCase) {
        if (!word(upperCase)) return false;
        ++at;
        return true;
    }
};

constexpr std::array<std::string_view, 11> joinWords{"ON",   "USING", "JOIN",    "INNER", "LEFT",   "RIGHT",
                                                     "FULL", "CROSS", "NATURAL", "OUTER", "INDEXED"};

bool isJoinWord(const Token& token) {
    return std::ranges::any_of(joinWords, [&](std::string_view word) { return isWord(token, word); });
}

bool isName(const Token& token) {
    return token.kind == TokenKind::quoted || token.kind == TokenKind::bracket ||
           (token.kind == TokenKind::word && !isJoinWord(token));
}

bool takeName(Reader& reader) {
    if (reader.at == reader.end || !isName(reader.tokens[reader.at])) return false;
    ++reader.at;
    return true;
}

// name, schema.name, with an alias or not
std::optional<Chain> takeTable(Reader& reader) {
    std::size_t begin = reader.at;
    if (!takeName(reader)) return std::nullopt;
    if (reader.sign('.') && (++reader.at, !takeName(reader))) return std::nullopt;
    if (reader.takeWord("AS") ? !takeName(reader) : false) return std::nullopt;
    takeName(reader);
    return Chain{{{begin, reader.at}}, {}, {}};
}

std::optional<Chain> takeJoins(Reader& reader);

std::optional<Chain> takeOperand(Reader& reader) {
    if (!reader.sign('(')) return takeTable(reader);
    std::size_t close = reader.tokens[reader.at].partner;
    Reader inside{reader.tokens, reader.at + 1, close};
    auto chain = takeJoins(inside);
    if (!chain || inside.at != close) return std::nullopt;
    reader.at = close + 1;
    return chain;
}

JoinKind takeJoinWords(Reader& reader) {
    Reader ahead = reader;
    JoinKind kind = JoinKind::inner;
    if (ahead.takeWord("LEFT"))
        kind = JoinKind::left;
    else if (ahead.takeWord("RIGHT"))
        kind = JoinKind::right;
    if (kind == JoinKind::inner)
        ahead.takeWord("INNER");
    else
        ahead.takeWord("OUTER");
    if (!ahead.takeWord("JOIN")) return JoinKind::none;
    reader = ahead;
    return kind;
}

// Up to the next join of the same level.
Piece takeCondition(Reader& reader) {
    Piece condition{reader.at, reader.at};
    while (reader.at < reader.end && !isJoinWord(reader.tokens[reader.at]) && !reader.sign(','))
        reader.at = reader.sign('(') ? reader.tokens[reader.at].partner + 1 : reader.at + 1;
    condition.end = reader.at;
    return condition;
}

std::optional<Chain> combine(Chain left, JoinKind kind, Chain right, Piece condition) {
    if (kind == JoinKind::right) std::swap(left, right);
    if (!right.joins.empty()) return std::nullopt;
    left.joins.push_back({kind == JoinKind::inner, right.bases.front(), {condition}});
    return left;
}

std::optional<Chain> takeJoins(Reader& reader) {
    auto chain = takeOperand(reader);
    while (chain) {
        JoinKind kind = takeJoinWords(reader);
        if (kind == JoinKind::none) break;
        auto operand = takeOperand(reader);
        if (!operand || !reader.takeWord("ON")) return std::nullopt;
        Piece condition = takeCondition(reader);
        if (condition.empty()) return std::nullopt;
        chain = combine(std::move(*chain), kind, std::move(*operand), condition);
    }
    return chain;
}

} // namespace

std::optional<Chain> chainOfRightJoins(Tokens tokens, Piece from) {
    Reader reader{tokens, from.begin, from.end};
    auto chain = takeJoins(reader);
    return reader.at == from.end ? chain : std::nullopt;
}

} // namespace kestrel::database
