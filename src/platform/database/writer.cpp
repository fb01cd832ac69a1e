#include "platform/database/writer.hpp"

#include "platform/database/bare_names.hpp"
#include "platform/database/joins.hpp"
#include "platform/database/selects.hpp"

#include <algorithm>
#include <optional>

namespace kestrel::database {

namespace {

std::size_t offsetOf(const Writer& writer, std::string_view text) {
    return static_cast<std::size_t>(text.data() - writer.sql.data());
}

std::size_t endOf(const Writer& writer, std::size_t at) {
    return offsetOf(writer, writer.tokens[at].text) + writer.tokens[at].text.size();
}

bool isName(const Writer& writer, std::size_t at) {
    TokenKind kind = writer.tokens[at].kind;
    return kind == TokenKind::quoted || kind == TokenKind::bracket || isBareName(writer.tokens, at);
}

bool isQuotedHere(const Writer& writer, std::size_t at) {
    if (writer.tokens[at].kind == TokenKind::bracket) return writer.words.quotesBrackets;
    return writer.words.quotesNames && isBareName(writer.tokens, at);
}

void writeQuoted(Writer& writer, std::string_view name) {
    writer.out += '"';
    for (char c : name) writer.out.append(c == '"' ? 2 : 1, c);
    writer.out += '"';
}

// A literal behind LIKE that is the whole pattern and has no ESCAPE.
bool isPattern(const Writer& writer, std::size_t at) {
    auto& tokens = writer.tokens;
    if (tokens[at].kind != TokenKind::literal || at == 0 || !isWord(tokens[at - 1], "LIKE")) return false;
    if (at + 1 == tokens.size()) return true;
    const Token& next = tokens[at + 1];
    if (next.kind == TokenKind::sign) return std::string_view("),;").find(next.text) != std::string_view::npos;
    return next.kind == TokenKind::word && !isWord(next, "ESCAPE");
}

// A word stands in front with nothing between.
bool touchesWord(const Writer& writer, std::size_t at) {
    return at > 0 && writer.tokens[at - 1].kind == TokenKind::word &&
           endOf(writer, at - 1) == offsetOf(writer, writer.tokens[at].text);
}

// An N in front of the literal, if it needs one and has none yet.
std::string_view nationalMark(const Writer& writer, std::size_t at) {
    const Token& token = writer.tokens[at];
    if (!writer.words.marksLiteralsAsNational || token.kind != TokenKind::literal || !holdsMoreThanAscii(token.text))
        return "";
    if (!touchesWord(writer, at)) return "N";
    if (!isSqlWord(writer.tokens[at - 1].text)) return "";
    return writer.out.ends_with('(') ? "N" : " N";
}

void writeOne(Writer& writer, std::size_t at) {
    const Token& token = writer.tokens[at];
    bool ilike = writer.words.like == LikeForm::ilike;
    writer.out += nationalMark(writer, at);
    if (isQuotedHere(writer, at))
        writeQuoted(writer, nameOf(token));
    else if (ilike && isWord(token, "LIKE"))
        writer.out += "ILIKE";
    else
        writer.out += token.text;
    if (ilike && isPattern(writer, at)) writer.out += " ESCAPE ''";
}

void writeRest(Writer& writer, std::size_t begin, std::size_t end) {
    for (std::size_t at = begin; at < end; ++at) {
        if (at != begin) writeGap(writer, at);
        writeOne(writer, at);
    }
}

// [table.]column [NOT] LIKE 'pattern'
struct Comparison {
    std::size_t columnEnd = 0, pattern = 0;
};

bool mayBeginComparison(const Writer& writer, std::size_t at) {
    return at > 0 && (isSign(writer.tokens[at - 1], '(') ||
                      isOneOf(writer.tokens[at - 1], {"WHERE", "AND", "OR", "NOT", "ON", "WHEN", "HAVING"}));
}

std::optional<Comparison> comparisonAt(const Writer& writer, std::size_t begin) {
    auto& tokens = writer.tokens;
    if (!mayBeginComparison(writer, begin) || !isName(writer, begin)) return std::nullopt;
    std::size_t at = begin + 1;
    if (at + 1 < tokens.size() && isSign(tokens[at], '.') && isName(writer, at + 1)) at += 2;
    Comparison found{at, 0};
    if (at < tokens.size() && isWord(tokens[at], "NOT")) ++at;
    found.pattern = at + 1;
    bool like = found.pattern < tokens.size() && isWord(tokens[at], "LIKE") && isPattern(writer, found.pattern);
    return like ? std::optional(found) : std::nullopt;
}

void writeInUpperCase(Writer& writer, std::size_t begin, std::size_t end) {
    writer.out += "UPPER(";
    writeRest(writer, begin, end);
    writer.out += ')';
}

std::size_t writeComparison(Writer& writer, std::size_t begin, const Comparison& found) {
    writeInUpperCase(writer, begin, found.columnEnd);
    writeGap(writer, found.columnEnd);
    writeRest(writer, found.columnEnd, found.pattern);
    writeGap(writer, found.pattern);
    if (touchesWord(writer, found.pattern)) writer.out += ' ';
    writeInUpperCase(writer, found.pattern, found.pattern + 1);
    return found.pattern + 1;
}

bool isNeedlessAs(const Writer& writer, std::size_t at) {
    return writer.inFrom && !writer.words.takesAsBeforeTableAlias && isWord(writer.tokens[at], "AS") &&
           at + 1 < writer.tokens.size() && isName(writer, at + 1);
}

} // namespace

void writeGap(Writer& writer, std::size_t at) {
    std::size_t begin = at > 0 ? endOf(writer, at - 1) : 0;
    std::size_t end = at < writer.tokens.size() ? offsetOf(writer, writer.tokens[at].text) : writer.sql.size();
    writer.out += writer.sql.substr(begin, end - begin);
}

std::size_t writeRun(Writer& writer, std::size_t begin, std::size_t end) {
    std::size_t from = offsetOf(writer, writer.tokens[begin].text);
    writer.out += writer.sql.substr(from, endOf(writer, end - 1) - from);
    return end;
}

std::size_t writeToken(Writer& writer, std::size_t at) {
    if (writer.words.like == LikeForm::upper)
        if (auto found = comparisonAt(writer, at)) return writeComparison(writer, at, *found);
    if (isNeedlessAs(writer, at)) ++at;
    writeOne(writer, at);
    return at + 1;
}

} // namespace kestrel::database
