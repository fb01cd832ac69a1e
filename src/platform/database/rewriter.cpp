#include "platform/database/rewriter.hpp"

#include "platform/database/joins.hpp"

#include <algorithm>
#include <array>

namespace kestrel::database {

namespace {

struct Writer {
    std::string_view sql;
    std::vector<Token> tokens;
    std::string out;
};

// One SELECT up to its end, cut into its clauses. All are positions of tokens; a clause that isn't there is empty.
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

bool isOneOf(const Token& token, std::initializer_list<std::string_view> words) {
    return token.kind == TokenKind::word &&
           std::ranges::any_of(words, [&](std::string_view word) { return isWord(token, word); });
}

bool joinsSelects(const Token& token) {
    return isOneOf(token, {"UNION", "EXCEPT", "INTERSECT"});
}

std::size_t behind(const Writer& writer, std::size_t at) {
    return isSign(writer.tokens[at], '(') ? writer.tokens[at].partner + 1 : at + 1;
}

std::size_t endOfSelect(const Writer& writer, std::size_t at, std::size_t end) {
    for (; at < end; at = behind(writer, at)) {
        const Token& token = writer.tokens[at];
        if (isSign(token, ')') || isSign(token, ';') || joinsSelects(token)) break;
    }
    return at;
}

// The limit of a compound SELECT would bound all its members: there TOP isn't understood.
bool isCompound(const Writer& writer, const Select& select) {
    bool goesOn = select.end < writer.tokens.size() && joinsSelects(writer.tokens[select.end]);
    return goesOn || (select.begin > 0 && (joinsSelects(writer.tokens[select.begin - 1]) ||
                                           isWord(writer.tokens[select.begin - 1], "ALL")));
}

bool isCount(const Token& token) {
    return token.kind == TokenKind::number && token.text.find_first_not_of("0123456789") == std::string_view::npos;
}

void findTop(const Writer& writer, Select& select) {
    auto& tokens = writer.tokens;
    std::size_t at = select.begin + 1;
    if (at < select.end && isOneOf(tokens[at], {"DISTINCT", "ALL"})) ++at;
    select.columns = at;
    if (at + 2 >= select.end || !isWord(tokens[at], "TOP") || !isCount(tokens[at + 1])) return;
    if (isOneOf(tokens[at + 2], {"PERCENT", "WITH"}) || isCompound(writer, select)) return;
    select.top = at;
    select.columns = at + 2;
    select.limit = tokens[at + 1].text;
}

void findClauses(const Writer& writer, Select& select) {
    auto& tokens = writer.tokens;
    auto find = [&](std::size_t at, std::initializer_list<std::string_view> words) {
        while (at < select.end && !isOneOf(tokens[at], words)) at = behind(writer, at);
        return at;
    };
    select.from = find(select.columns, {"FROM"});
    select.where = select.fromEnd = find(select.from, {"WHERE", "GROUP", "HAVING", "ORDER", "LIMIT", "WINDOW"});
    select.whereEnd = select.fromEnd;
    if (select.where < select.end && isWord(tokens[select.where], "WHERE"))
        select.whereEnd = find(select.where, {"GROUP", "HAVING", "ORDER", "LIMIT", "WINDOW"});
}

Select readSelect(const Writer& writer, std::size_t begin, std::size_t end) {
    Select select;
    select.begin = begin;
    select.end = endOfSelect(writer, begin, end);
    findTop(writer, select);
    findClauses(writer, select);
    return select;
}

bool holdsRightJoin(const Writer& writer, Piece from) {
    for (std::size_t at = from.begin; at < from.end; ++at)
        if (isWord(writer.tokens[at], "RIGHT")) return true;
    return false;
}

std::optional<Chain> chainOf(const Writer& writer, const Select& select) {
    if (select.from == select.end) return std::nullopt;
    Piece from{select.from + 1, select.fromEnd};
    Piece where{std::min(select.where + 1, select.whereEnd), select.whereEnd};
    if (holdsMark(writer.tokens, where)) return chainOfMarkedJoins(writer.tokens, from, where);
    return holdsRightJoin(writer, from) ? chainOfRightJoins(writer.tokens, from) : std::nullopt;
}

std::size_t offsetOf(const Writer& writer, std::string_view text) {
    return static_cast<std::size_t>(text.data() - writer.sql.data());
}

// The blanks and comments in front of a token, as they stand.
void writeGap(Writer& writer, std::size_t at) {
    std::size_t begin = 0;
    if (at > 0) begin = offsetOf(writer, writer.tokens[at - 1].text) + writer.tokens[at - 1].text.size();
    std::size_t end = at < writer.tokens.size() ? offsetOf(writer, writer.tokens[at].text) : writer.sql.size();
    writer.out += writer.sql.substr(begin, end - begin);
}

void writeToken(Writer& writer, const Token& token) {
    if (token.kind != TokenKind::bracket) {
        writer.out += token.text;
        return;
    }
    writer.out += '"';
    for (char c : nameOf(token)) writer.out.append(c == '"' ? 2 : 1, c);
    writer.out += '"';
}

std::size_t writeSelect(Writer& writer, const Select& select);

// Tokens and what stands between them, not what stands in front of the first; every SELECT in there in its own turn.
void writePiece(Writer& writer, Piece piece, bool dropMarks = false) {
    for (std::size_t at = piece.begin; at < piece.end;) {
        if (dropMarks && isMark(writer.tokens, at)) {
            at += 3;
            continue;
        }
        if (at != piece.begin) writeGap(writer, at);
        if (isWord(writer.tokens[at], "SELECT"))
            at = writeSelect(writer, readSelect(writer, at, piece.end));
        else
            writeToken(writer, writer.tokens[at++]);
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

// FROM and WHERE by the chain. The WHERE of right joins stays as it stands, the one with marks is what is left of it.
void writeChain(Writer& writer, const Select& select, const Chain& chain) {
    writeGapAndPiece(writer, {select.from, select.from + 1});
    writer.out += ' ';
    writeList(writer, chain.bases, ", ", false);
    writeJoins(writer, chain);
    if (!holdsMark(writer.tokens, {select.where, select.whereEnd})) {
        writeGapAndPiece(writer, {select.where, select.whereEnd});
    } else if (!chain.where.empty()) {
        writeGapAndPiece(writer, {select.where, select.where + 1});
        writer.out += ' ';
        writeList(writer, chain.where, " AND ", false);
    }
}

void writeHead(Writer& writer, const Select& select) {
    std::size_t plain = select.limit.empty() ? select.columns : select.top;
    for (std::size_t at = select.begin; at < plain; ++at) {
        if (at != select.begin) writeGap(writer, at);
        writeToken(writer, writer.tokens[at]);
    }
    writeGapAndPiece(writer, {select.columns, select.from});
}

std::size_t writeSelect(Writer& writer, const Select& select) {
    writeHead(writer, select);
    if (auto chain = chainOf(writer, select))
        writeChain(writer, select, *chain);
    else
        writeGapAndPiece(writer, {select.from, select.whereEnd});
    writeGapAndPiece(writer, {select.whereEnd, select.end});
    if (!select.limit.empty()) {
        writer.out += " LIMIT ";
        writer.out += select.limit;
    }
    return select.end;
}

bool continues(std::string_view sql, std::size_t at, std::string_view upperCase) {
    for (char c : upperCase)
        if (++at >= sql.size() || (sql[at] & ~0x20) != c) return false;
    return true;
}

// Quick and never wrong to the other side: most texts have none of the features and pass on uncut.
bool mayHoldFeature(std::string_view sql) {
    for (std::size_t at = 0; at < sql.size(); ++at) {
        switch (sql[at]) {
        case '[':
        case '+':
            return true;
        case 'T':
        case 't':
            if (continues(sql, at, "OP")) return true;
            break;
        case 'R':
        case 'r':
            if (continues(sql, at, "IGHT")) return true;
            break;
        default:
            break;
        }
    }
    return false;
}

} // namespace

std::string rewrite(std::string_view sql, Dialect) {
    Writer writer{sql, {}, {}};
    if (!mayHoldFeature(sql) || !cutTokens(sql, writer.tokens)) return std::string(sql);
    writer.out.reserve(sql.size() + 16);
    writeGap(writer, 0);
    writePiece(writer, {0, writer.tokens.size()});
    if (!writer.tokens.empty()) writeGap(writer, writer.tokens.size());
    return std::move(writer.out);
}

} // namespace kestrel::database
