#include "platform/database/tokens.hpp"

#include "platform/database/names.hpp"

#include <array>

namespace kestrel::database {

namespace {

constexpr auto nowhere = std::string_view::npos;

constexpr std::array<bool, 256> wordBytes = [] {
    std::array<bool, 256> bytes{};
    for (int c = 0; c < 256; ++c)
        bytes[static_cast<std::size_t>(c)] = c >= 0x80 || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                                             (c >= 'a' && c <= 'z') || c == '_' || c == '$';
    return bytes;
}();

bool isWordByte(char c) {
    return wordBytes[static_cast<unsigned char>(c)];
}

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// Behind the closing quote; a doubled one is part of the text.
std::size_t behindQuoted(std::string_view sql, std::size_t at, char quote) {
    for (;;) {
        at = sql.find(quote, at + 1);
        if (at == nowhere) return nowhere;
        if (at + 1 == sql.size() || sql[at + 1] != quote) return at + 1;
        ++at;
    }
}

std::size_t behindFound(std::size_t found, std::size_t length) {
    return found == nowhere ? nowhere : found + length;
}

std::size_t behindGap(std::string_view sql, std::size_t at) {
    while (at != nowhere && at < sql.size()) {
        if (isBlank(sql[at]))
            ++at;
        else if (sql.substr(at, 2) == "--")
            at = std::min(sql.find('\n', at), sql.size());
        else if (sql.substr(at, 2) == "/*")
            at = behindFound(sql.find("*/", at + 2), 2);
        else
            break;
    }
    return at;
}

std::size_t behindWord(std::string_view sql, std::size_t at) {
    while (at < sql.size() && isWordByte(sql[at])) ++at;
    return at;
}

struct Cut {
    TokenKind kind;
    std::size_t end;
};

Cut cutAt(std::string_view sql, std::size_t at) {
    char c = sql[at];
    if (c >= '0' && c <= '9') return {TokenKind::number, behindWord(sql, at)};
    if (isWordByte(c)) return {TokenKind::word, behindWord(sql, at)};
    if (c == '\'') return {TokenKind::literal, behindQuoted(sql, at, c)};
    if (c == '"' || c == '`') return {TokenKind::quoted, behindQuoted(sql, at, c)};
    if (c == '[') return {TokenKind::bracket, behindFound(sql.find(']', at), 1)};
    return {TokenKind::sign, at + 1};
}

bool pairParentheses(std::vector<Token>& tokens) {
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (isSign(tokens[i], '(')) open.push_back(i);
        if (!isSign(tokens[i], ')')) continue;
        if (open.empty()) return false;
        tokens[i].partner = open.back();
        tokens[open.back()].partner = i;
        open.pop_back();
    }
    return open.empty();
}

} // namespace

bool cutTokens(std::string_view sql, std::vector<Token>& tokens) {
    tokens.reserve(sql.size() / 4);
    std::size_t at = behindGap(sql, 0);
    while (at < sql.size()) {
        Cut cut = cutAt(sql, at);
        if (cut.end == nowhere) return false;
        tokens.push_back({cut.kind, sql.substr(at, cut.end - at)});
        at = behindGap(sql, cut.end);
    }
    return at == sql.size() && pairParentheses(tokens);
}

bool isWord(const Token& token, std::string_view upperCase) {
    return token.kind == TokenKind::word && sameName(token.text, upperCase);
}

bool isSign(const Token& token, char sign) {
    return token.kind == TokenKind::sign && token.text.front() == sign;
}

std::string_view nameOf(const Token& token) {
    bool closed = token.kind == TokenKind::quoted || token.kind == TokenKind::bracket;
    return closed ? token.text.substr(1, token.text.size() - 2) : token.text;
}

} // namespace kestrel::database
