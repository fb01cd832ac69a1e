// How each family of SQL says what making and filling tables needs. The program's own statements are not built from
// these: they are one text, which the engine turns into its own.
#pragma once

#include "platform/database/dialect.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel::setup {

// Text compares by code point in every family. In the patterns "%" is what they are about.
struct Words {
    database::Dialect dialect;
    const char* text;
    const char* keyText; // of a column that a key or an index holds: most servers limit how long such a text may be
    const char* integer;
    const char* number;
    std::string_view nameQuotes; // around a name; empty: it stands bare
    const char* joinedColumn;    // the type and rule of a generated column, %: its parts, joined
    const char* joinedPart;      // %: the name of one part, a null counts as empty
    const char* joint;           // between two parts
    const char* tableEnd;        // behind the columns
    const char* textOpening;     // of a literal
    std::size_t rowsOfOneInsert; // how many rows one INSERT may hold
    const char* nullsInIndex;    // behind a column of an index that may be null: where its nulls stand
    const char* partsOfText;     // an index that finds a part of a text: %: one column; nothing where there is none
    const char* middleware;      // how an installation's configuration names such a server
    const char* begin;           // of a transaction; nothing where every statement stands alone
    const char* objects;         // SELECT of the names of all tables and views that a new table would stand among
};

const Words& wordsOf(database::Dialect dialect);

std::string quoted(std::string_view name, const Words& words);
// The value as a literal; nothing is NULL.
std::string literal(std::optional<std::string_view> value, const Words& words);
// The pattern with every "%" replaced.
std::string filledPattern(std::string_view pattern, std::string_view text);

} // namespace kestrel::setup
