#include "platform/database/rewriter.hpp"

#include "platform/database/column_order.hpp"
#include "platform/database/joins.hpp"
#include "platform/database/selects.hpp"
#include "platform/database/writer.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace kestrel::database {

namespace {

bool holdsRightJoin(const Writer& writer, Piece from) {
    for (std::size_t at = from.begin; at < from.end; ++at)
        if (isWord(writer.tokens[at], "RIGHT")) return true;
    return false;
}

std::optional<Chain> chainOf(const Writer& writer, const Select& select) {
    if (select.from == select.end) return std::nullopt;
    Piece from{select.from + 1, select.fromEnd};
    Piece where{std::min(select.where + 1, select.whereEnd), select.whereEnd};
    if (holdsMark(writer.tokens, where))
        return writer.words.flattensMarks ? chainOfMarkedJoins(writer.tokens, from, where) : std::nullopt;
    bool flattens = writer.words.flattensRightJoins && holdsRightJoin(writer, from);
    return flattens ? chainOfRightJoins(writer.tokens, from) : std::nullopt;
}

std::size_t writeSelect(Writer& writer, const Select& select);

// Where writePiece has to look at a single token. Up to there an engine that keeps tokens gets the text in one go.
bool isSpecial(const Writer& writer, std::size_t at, bool dropMarks) {
    const Token& token = writer.tokens[at];
    return token.kind == TokenKind::bracket || isWord(token, "SELECT") || (dropMarks && isMark(writer.tokens, at));
}

std::size_t endOfRun(const Writer& writer, std::size_t at, std::size_t end, bool dropMarks) {
    if (!keepsTokens(writer.words)) return at;
    while (at < end && !isSpecial(writer, at, dropMarks)) ++at;
    return at;
}

// Tokens and what stands between them, not what stands in front of the first; every SELECT in there in its own turn.
void writePiece(Writer& writer, Piece piece, bool dropMarks = false) {
    for (std::size_t at = piece.begin; at < piece.end;) {
        if (dropMarks && isMark(writer.tokens, at)) {
            at += 3;
            continue;
        }
        if (at != piece.begin) writeGap(writer, at);
        if (std::size_t end = endOfRun(writer, at, piece.end, dropMarks); end > at)
            at = writeRun(writer, at, end);
        else if (isWord(writer.tokens[at], "SELECT"))
            at = writeSelect(writer, readSelect(writer.tokens, at, piece.end));
        else
            at = writeToken(writer, at);
    }
}

void writeGapAndPiece(Writer& writer, Piece piece) {
    if (piece.empty()) return;
    writeGap(writer, piece.begin);
    writePiece(writer, piece);
}

void writeList(Writer& writer, const std::vector<Piece>& pieces, std::string_view between, bool dropMarks) {
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) writer.out += between;
        writePiece(writer, pieces[i], dropMarks);
    }
}

void writeJoins(Writer& writer, const Chain& chain) {
    for (const Join& join : chain.joins) {
        writer.out += join.inner ? " INNER JOIN " : " LEFT JOIN ";
        writePiece(writer, join.table);
        writer.out += " ON ";
        writeList(writer, join.conditions, " AND ", true);
    }
}

void writeFrom(Writer& writer, const Select& select, const std::optional<Chain>& chain) {
    bool before = std::exchange(writer.inFrom, true);
    if (chain) {
        writeGapAndPiece(writer, {select.from, select.from + 1});
        writer.out += ' ';
        writeList(writer, chain->bases, writer.words.betweenBases, false);
        writeJoins(writer, *chain);
    } else {
        writeGapAndPiece(writer, {select.from, select.fromEnd});
    }
    writer.inFrom = before;
}

// The WHERE of right joins stays as it stands, the one with marks is what is left of it.
void writeWhere(Writer& writer, const Select& select, const std::optional<Chain>& chain) {
    if (!chain || !holdsMark(writer.tokens, {select.where, select.whereEnd})) {
        writeGapAndPiece(writer, {select.where, select.whereEnd});
    } else if (!chain->where.empty()) {
        writeGapAndPiece(writer, {select.where, select.where + 1});
        writer.out += ' ';
        writeList(writer, chain->where, " AND ", false);
    }
}

// The words in front of the columns hold no name, so each stays one token.
void writeHead(Writer& writer, const Select& select) {
    bool moves = !select.limit.empty() && writer.words.limit != LimitForm::top;
    std::size_t plain = moves ? select.top : select.columns;
    for (std::size_t at = select.begin; at < plain; ++at) {
        if (at != select.begin) writeGap(writer, at);
        writeToken(writer, at);
    }
    bool before = std::exchange(writer.inFrom, false);
    writeGapAndPiece(writer, {select.columns, select.from});
    writer.inFrom = before;
}

void writeLimit(Writer& writer, std::string_view limit) {
    if (limit.empty() || writer.words.limit == LimitForm::top) return;
    bool fetch = writer.words.limit == LimitForm::fetchFirst;
    writer.out += fetch ? " FETCH FIRST " : " LIMIT ";
    writer.out += limit;
    if (fetch) writer.out += " ROWS ONLY";
}

// Where the columns of ORDER BY begin in the SELECT; its end when it has none.
std::size_t beginOfOrder(const Writer& writer, const Select& select) {
    std::size_t at = select.whereEnd;
    while (at < select.end && !isWord(writer.tokens[at], "ORDER")) at = behind(writer.tokens, at);
    return at + 1 < select.end && isWord(writer.tokens[at + 1], "BY") ? at + 2 : select.end;
}

// Up to the next comma, LIMIT or FETCH of the level.
std::size_t endOfExpression(const Writer& writer, std::size_t at, std::size_t end) {
    while (at < end && !isSign(writer.tokens[at], ',') && !isOneOf(writer.tokens[at], {"LIMIT", "FETCH"}))
        at = behind(writer.tokens, at);
    return at;
}

// GROUP BY, HAVING, ORDER BY
void writeTail(Writer& writer, const Select& select) {
    std::size_t at = writer.words.sortsNullsAsGreatest ? beginOfOrder(writer, select) : select.end;
    writeGapAndPiece(writer, {select.whereEnd, at});
    while (at < select.end) {
        const std::size_t end = endOfExpression(writer, at, select.end);
        writeGapAndPiece(writer, {at, end});
        writer.out += orderOfNulls(writer, select, at, end);
        const bool more = end < select.end && isSign(writer.tokens[end], ',');
        at = more ? end + 1 : select.end;
        writeGapAndPiece(writer, {end, at});
    }
}

std::size_t writeSelect(Writer& writer, const Select& select) {
    auto chain = chainOf(writer, select);
    writeHead(writer, select);
    writeFrom(writer, select, chain);
    writeWhere(writer, select, chain);
    writeTail(writer, select);
    writeLimit(writer, select.limit);
    return select.end;
}

// The first letters of TOP, RIGHT, [name] and (+).
constexpr std::array<bool, 256> beginsFeature = [] {
    std::array<bool, 256> bytes{};
    for (char c : std::string_view("TtRr[+")) bytes[static_cast<unsigned char>(c)] = true;
    return bytes;
}();

bool continues(std::string_view sql, std::size_t at, std::string_view upperCase) {
    for (char c : upperCase)
        if (++at >= sql.size() || (sql[at] & ~0x20) != c) return false;
    return true;
}

// Quick and never wrong to the other side: on an engine that takes names and literals as they stand, most texts have
// none of the features and pass on uncut.
bool mayHoldFeature(std::string_view sql, const DialectWords& words) {
    if (!keepsTokens(words)) return true;
    for (std::size_t at = 0; at < sql.size(); ++at) {
        if (!beginsFeature[static_cast<unsigned char>(sql[at])]) continue;
        if (sql[at] == '[' || sql[at] == '+' || continues(sql, at, "OP") || continues(sql, at, "IGHT")) return true;
    }
    return false;
}

} // namespace

std::string rewrite(std::string_view sql, Dialect dialect, const RequiredColumns* required) {
    Writer writer{sql, wordsOf(dialect)};
    writer.required = required;
    if (!mayHoldFeature(sql, writer.words) || !cutTokens(sql, writer.tokens)) return std::string(sql);
    writer.out.reserve(sql.size() + sql.size() / 4 + 16);
    writeGap(writer, 0);
    writePiece(writer, {0, writer.tokens.size()});
    if (!writer.tokens.empty()) writeGap(writer, writer.tokens.size());
    return std::move(writer.out);
}

} // namespace kestrel::database
