// The FROM clause as a flat chain: one base, or several with commas, and tables that are joined to what stands before
// them.
#pragma once

#include "platform/database/tokens.hpp"

#include <optional>
#include <span>
#include <vector>

namespace kestrel::database {

// Tokens [begin, end) of the statement.
struct Piece {
    std::size_t begin = 0, end = 0;
    bool empty() const { return begin == end; }
};

struct Join {
    bool inner = false; // INNER JOIN; else LEFT JOIN
    Piece table;
    std::vector<Piece> conditions; // all of them hold
};

struct Chain {
    std::vector<Piece> bases;
    std::vector<Join> joins;
    std::vector<Piece> where; // what is left of the WHERE clause when its joins were taken out
};

// FROM clause (behind FROM) with RIGHT JOIN, nested or not. Nothing: not understood, or no flat chain means the same.
std::optional<Chain> chainOfRightJoins(std::span<const Token> tokens, Piece from);

// FROM clause with a comma list and WHERE clause (behind WHERE) with (+) marks. Nothing: not understood.
std::optional<Chain> chainOfMarkedJoins(std::span<const Token> tokens, Piece from, Piece where);

// Whether the (+) mark stands at that token, and whether there is one in the piece outside of its own inner SELECTs.
bool isMark(std::span<const Token> tokens, std::size_t at);
bool holdsMark(std::span<const Token> tokens, Piece piece);

} // namespace kestrel::database
