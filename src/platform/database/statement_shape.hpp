// What an engine asks of a statement before it sends it, by its tokens: literals, quoted names and comments are opaque.
// For a text whose literals, names, comments or parentheses don't close, every answer is false.
#pragma once

#include <string_view>

namespace kestrel::database {

// Behind a ";" stands more than blanks, comments and further ";".
bool holdsSecondStatement(std::string_view sql);

// SELECT or VALUES, in parentheses or not, also behind WITH; not a change that begins with WITH.
bool readsRows(std::string_view sql);

// The outermost SELECT reads no more than a given number of rows: TOP n, LIMIT n, FETCH FIRST n.
bool limitsRows(std::string_view sql);

} // namespace kestrel::database
