// SQL text cut into tokens. Blanks and comments stand between them; literals and quoted names are one token each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kestrel::database {

enum class TokenKind : std::uint8_t {
    word,    // bare name or keyword
    quoted,  // "name" or `name`
    bracket, // [name]
    literal, // 'text'
    number,  // begins with a digit
    sign,    // one character of anything else
};

struct Token {
    TokenKind kind;
    std::string_view text;
    std::size_t partner = 0; // of a parenthesis: where the other one stands in the list
};

// False when a literal, a quoted name, a comment or a parenthesis isn't closed, or one is closed that wasn't open.
bool cutTokens(std::string_view sql, std::vector<Token>& tokens);

bool isWord(const Token& token, std::string_view upperCase); // a bare word, letter case ignored
bool isSign(const Token& token, char sign);
std::string_view nameOf(const Token& token); // a name without its quotes (a quote within it stays doubled)

} // namespace kestrel::database
