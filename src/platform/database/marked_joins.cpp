// FROM a, b WHERE a.x(+) = b.y: the table with the mark is joined to the other one, and gives nulls where it has no
// row.
#include "platform/database/joins.hpp"

#include "platform/database/names.hpp"

#include <utility>

namespace kestrel::database {

namespace {

using Tokens = std::span<const Token>;

constexpr std::size_t noTable = static_cast<std::size_t>(-1);

struct Table {
    Piece text;
    std::string_view name; // its alias when it has one
    std::vector<Piece> conditions;
    std::vector<std::size_t> needs; // the tables that its conditions name
};

struct Operand {
    std::size_t table = noTable; // none: a literal or a number
    bool marked = false;
};

bool isName(const Token& token) {
    return token.kind == TokenKind::word || token.kind == TokenKind::quoted || token.kind == TokenKind::bracket;
}

// name, schema.name, name alias, name AS alias
std::optional<Table> readTable(Tokens tokens, Piece piece) {
    std::size_t at = piece.begin;
    auto takeName = [&] { return at < piece.end && isName(tokens[at]) ? (++at, true) : false; };
    if (!takeName()) return std::nullopt;
    if (at < piece.end && isSign(tokens[at], '.') && (++at, !takeName())) return std::nullopt;
    if (at < piece.end && isWord(tokens[at], "AS")) ++at;
    takeName();
    if (at != piece.end || isWord(tokens[at - 1], "AS")) return std::nullopt;
    return Table{piece, nameOf(tokens[at - 1]), {}, {}};
}

std::optional<std::vector<Table>> readTables(Tokens tokens, Piece from) {
    std::vector<Table> tables;
    std::size_t begin = from.begin;
    for (std::size_t at = from.begin; at <= from.end; ++at) {
        if (at < from.end && !isSign(tokens[at], ',')) continue;
        auto table = readTable(tokens, {begin, at});
        if (!table) return std::nullopt;
        tables.push_back(*table);
        begin = at + 1;
    }
    return tables;
}

// The end of the condition that begins there: the next AND of the same level that belongs to no BETWEEN and no CASE.
// Nothing where the level holds OR or another WHERE: then the marks can't be taken out.
std::optional<std::size_t> conditionEnd(Tokens tokens, std::size_t at, std::size_t end) {
    int cases = 0;
    bool between = false;
    for (; at < end; at = isSign(tokens[at], '(') ? tokens[at].partner + 1 : at + 1) {
        if (tokens[at].kind != TokenKind::word) continue;
        if (isWord(tokens[at], "CASE")) ++cases;
        if (isWord(tokens[at], "END")) --cases;
        if (cases > 0) continue;
        if (isWord(tokens[at], "OR") || isWord(tokens[at], "WHERE")) return std::nullopt;
        if (isWord(tokens[at], "BETWEEN"))
            between = true;
        else if (isWord(tokens[at], "AND") && !std::exchange(between, false))
            break;
    }
    return at;
}

std::optional<std::vector<Piece>> readConditions(Tokens tokens, Piece where) {
    std::vector<Piece> conditions;
    for (std::size_t begin = where.begin; begin <= where.end;) {
        auto end = conditionEnd(tokens, begin, where.end);
        if (!end || *end == begin) return std::nullopt;
        conditions.push_back({begin, *end});
        begin = *end + 1;
    }
    return conditions;
}

std::size_t findTable(const std::vector<Table>& tables, std::string_view name) {
    for (std::size_t i = 0; i < tables.size(); ++i)
        if (sameName(tables[i].name, name)) return i;
    return noTable;
}

// table.column, table.column(+), a literal or a number
std::optional<Operand> takeOperand(Tokens tokens, Piece& rest, const std::vector<Table>& tables) {
    if (rest.empty()) return std::nullopt;
    const Token& first = tokens[rest.begin];
    if (first.kind == TokenKind::literal || first.kind == TokenKind::number) return ++rest.begin, Operand{};
    bool column = rest.end - rest.begin >= 3 && isName(first) && isSign(tokens[rest.begin + 1], '.') &&
                  isName(tokens[rest.begin + 2]);
    Operand operand{column ? findTable(tables, nameOf(first)) : noTable};
    if (operand.table == noTable) return std::nullopt;
    rest.begin += 3;
    operand.marked = rest.end - rest.begin >= 3 && isMark(tokens, rest.begin);
    if (operand.marked) rest.begin += 3;
    return operand;
}

bool takeComparison(Tokens tokens, Piece& rest) {
    std::size_t begin = rest.begin;
    while (!rest.empty() && tokens[rest.begin].kind == TokenKind::sign &&
           std::string_view("=<>!").find(tokens[rest.begin].text.front()) != std::string_view::npos)
        ++rest.begin;
    return rest.begin > begin && rest.begin - begin <= 2;
}

// Hands the condition to the table that carries the mark. Exactly one side carries it.
bool takeMarked(Tokens tokens, Piece condition, std::vector<Table>& tables) {
    Piece rest = condition;
    auto left = takeOperand(tokens, rest, tables);
    if (!left || !takeComparison(tokens, rest)) return false;
    auto right = takeOperand(tokens, rest, tables);
    if (!right || !rest.empty() || left->marked == right->marked || left->table == right->table) return false;
    Table& table = tables[left->marked ? left->table : right->table];
    std::size_t other = left->marked ? right->table : left->table;
    table.conditions.push_back(condition);
    if (other != noTable) table.needs.push_back(other);
    return true;
}

// Each table behind those that its conditions name.
bool orderTables(const std::vector<Table>& tables, Chain& chain) {
    std::vector<bool> placed(tables.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < tables.size(); ++i) {
        if (!tables[i].conditions.empty()) continue;
        chain.bases.push_back(tables[i].text);
        placed[i] = ++count;
    }
    auto ready = [&](std::size_t i) {
        return !placed[i] && std::ranges::all_of(tables[i].needs, [&](std::size_t need) { return placed[need]; });
    };
    for (std::size_t i = 0; i < tables.size();) {
        if (!ready(i)) {
            ++i;
            continue;
        }
        chain.joins.push_back({false, tables[i].text, tables[i].conditions});
        placed[i] = ++count;
        i = 0;
    }
    return !chain.bases.empty() && count == tables.size();
}

} // namespace

bool isMark(Tokens tokens, std::size_t at) {
    return isSign(tokens[at], '(') && tokens[at].partner == at + 2 && isSign(tokens[at + 1], '+');
}

bool holdsMark(Tokens tokens, Piece piece) {
    for (std::size_t at = piece.begin; at < piece.end; ++at) {
        if (!isSign(tokens[at], '(')) continue;
        if (isMark(tokens, at)) return true;
        if (isWord(tokens[at + 1], "SELECT")) at = tokens[at].partner;
    }
    return false;
}

std::optional<Chain> chainOfMarkedJoins(Tokens tokens, Piece from, Piece where) {
    auto tables = readTables(tokens, from);
    auto conditions = readConditions(tokens, where);
    if (!tables || !conditions) return std::nullopt;
    Chain chain;
    for (Piece condition : *conditions) {
        if (!holdsMark(tokens, condition))
            chain.where.push_back(condition);
        else if (!takeMarked(tokens, condition, *tables))
            return std::nullopt;
    }
    return orderTables(*tables, chain) ? std::optional(std::move(chain)) : std::nullopt;
}

} // namespace kestrel::database
