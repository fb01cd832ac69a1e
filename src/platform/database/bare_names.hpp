// Which bare words of a statement are names of tables and columns.
#pragma once

#include "platform/database/tokens.hpp"

#include <span>

namespace kestrel::database {

// Whether the token is a bare name: not a word of the grammar, not a function, not the type of a CAST.
bool isBareName(std::span<const Token> tokens, std::size_t at);

bool holdsMoreThanAscii(std::string_view text);

} // namespace kestrel::database
