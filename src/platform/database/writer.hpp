// The tokens of a statement, one after the other, as a family of SQL writes them.
#pragma once

#include "platform/database/dialect_words.hpp"
#include "platform/database/required_columns.hpp"
#include "platform/database/tokens.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::database {

struct Writer {
    std::string_view sql;
    const DialectWords& words;
    std::vector<Token> tokens{};
    std::string out{};
    const RequiredColumns* required = nullptr; // null: nobody knows which are
    bool inFrom = false;                       // tables stand there, so an AS is in front of a table's alias
};

// The blanks and comments in front of a token (or behind the last one), as they stand.
void writeGap(Writer& writer, std::size_t at);

// Tokens with what stands between them, as they stand. Answers end.
std::size_t writeRun(Writer& writer, std::size_t begin, std::size_t end);

// The token, or the few that become something else together. Answers where the next one stands.
std::size_t writeToken(Writer& writer, std::size_t at);

} // namespace kestrel::database
