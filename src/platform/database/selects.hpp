// One SELECT of a statement, cut into its clauses.
#pragma once

#include "platform/database/tokens.hpp"

#include <initializer_list>
#include <span>

namespace kestrel::database {

// All are positions of tokens; a clause that isn't there is empty.
struct Select {
    std::size_t begin = 0, end = 0;
    std::size_t columns = 0;  // behind TOP n
    std::string_view limit;   // the n of TOP n, or empty
    std::size_t top = 0;      // where TOP stands, when there is a limit
    std::size_t from = 0;     // the word FROM, or end
    std::size_t fromEnd = 0;  //
    std::size_t where = 0;    // the word WHERE, or fromEnd
    std::size_t whereEnd = 0; //
};

// The SELECT whose first word stands at begin; it ends at end at the latest. A TOP n of one member of a compound SELECT
// is no limit, but belongs to the columns.
Select readSelect(std::span<const Token> tokens, std::size_t begin, std::size_t end);

bool isOneOf(const Token& token, std::initializer_list<std::string_view> upperCase);
bool isCount(const Token& token);      // digits
bool joinsSelects(const Token& token); // UNION and its like

// The next token of the same level: behind the parenthesis where one begins.
std::size_t behind(std::span<const Token> tokens, std::size_t at);

} // namespace kestrel::database
