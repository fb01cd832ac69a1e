// What a statement's text tells of itself before it is sent. A text that can't be cut into tokens tells nothing.
#pragma once

#include <string_view>

namespace kestrel::database {

// A ";" outside of literals, names and comments with more than blanks, comments and ";" behind it.
bool holdsSecondStatement(std::string_view sql);
// It answers rows: the first word is SELECT, WITH or VALUES.
bool readsRows(std::string_view sql);
// Its answer is bounded: behind the first SELECT stands TOP, or LIMIT or FETCH on the same level.
bool limitsRows(std::string_view sql);

} // namespace kestrel::database
