#include "setup/insert_text.hpp"

#include "platform/database/tokens.hpp"
#include "text/characters.hpp"

#include <algorithm>

namespace kestrel::setup {

using database::isSign;
using database::isWord;
using database::Token;
using database::TokenKind;

namespace {

const InsertValue* find(const InsertText& insert, std::string_view column) {
    const auto found = std::ranges::find(insert.values, column, &InsertValue::column);
    return found == insert.values.end() ? nullptr : &*found;
}

bool isName(const Token& token) {
    return token.kind == TokenKind::word || token.kind == TokenKind::bracket || token.kind == TokenKind::quoted;
}

std::string meaningOf(std::string_view literal) {
    return text::replaceAll(literal.substr(1, literal.size() - 2), "''", "'");
}

// Walks over the tokens of one statement; every step answers false at what it does not expect.
struct Reader {
    std::string_view statement;
    std::vector<Token> tokens;
    std::size_t at = 0;
    InsertText insert = {};

    bool word(std::string_view upperCase) { return at < tokens.size() && isWord(tokens[at], upperCase) && ++at; }
    bool sign(char c) { return at < tokens.size() && isSign(tokens[at], c) && ++at; }
    std::size_t offset() const { return static_cast<std::size_t>(tokens[at].text.data() - statement.data()); }

    bool name(std::string& taken) {
        if (at == tokens.size() || !isName(tokens[at])) return false;
        taken = database::nameOf(tokens[at++]);
        return true;
    }
    bool column() {
        insert.values.emplace_back();
        return name(insert.values.back().column);
    }
    bool columns() {
        if (!sign('(') || !column()) return false;
        while (sign(','))
            if (!column()) return false;
        return sign(')');
    }
    bool isSeparator() const { return isSign(tokens[at], ',') || isSign(tokens[at], ')'); }
    // A literal alone, or what stands bare up to the next comma.
    bool value(InsertValue& into) {
        const std::size_t first = at;
        into.begin = offset();
        while (at < tokens.size() && !isSeparator()) {
            into.end = offset() + tokens[at].text.size();
            if (tokens[at++].kind == TokenKind::literal && at != first + 1) return false;
        }
        if (at == first || at == tokens.size()) return false;
        const bool literal = tokens[first].kind == TokenKind::literal;
        into.value = statement.substr(into.begin, into.end - into.begin);
        if (literal) into.value = meaningOf(into.value);
        return !literal || at == first + 1;
    }
    bool values() {
        if (!word("VALUES") || !sign('(')) return false;
        for (std::size_t i = 0; i < insert.values.size(); ++i) {
            if (i > 0 && !sign(',')) return false;
            if (at == tokens.size() || !value(insert.values[i])) return false;
        }
        return sign(')');
    }
    bool head() { return word("INSERT") && word("INTO") && name(insert.table) && columns(); }
};

std::vector<std::string_view> cutAt(std::string_view text, std::string_view separator) {
    std::vector<std::string_view> parts;
    for (auto end = text.find(separator); end != text.npos; end = text.find(separator)) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + separator.size());
    }
    parts.push_back(text);
    return parts;
}

// A value whose apostrophes are all doubled was quoted; any other stands as it was typed.
std::string asMeant(std::string_view written) {
    const std::string single = text::replaceAll(written, "''", "'");
    return text::replaceAll(single, "'", "''") == written ? single : std::string(written);
}

// What stands between the outermost parentheses and apostrophes behind VALUES; nothing where they are missing.
std::string_view betweenQuotes(std::string_view values) {
    const auto begin = values.find_first_not_of(' ');
    if (begin == values.npos || values.size() < begin + 4) return {};
    if (!values.substr(begin).starts_with("('") || !values.ends_with("')")) return {};
    return values.substr(begin + 2, values.size() - begin - 4);
}

} // namespace

bool InsertText::has(std::string_view column) const {
    return find(*this, column) != nullptr;
}

std::string InsertText::value(std::string_view column) const {
    const InsertValue* found = find(*this, column);
    return found ? found->value : std::string();
}

std::optional<InsertText> readInsert(std::string_view statement) {
    Reader reader{statement, {}};
    if (!database::cutTokens(statement, reader.tokens)) return std::nullopt;
    if (!reader.head() || !reader.values() || reader.at != reader.tokens.size()) return std::nullopt;
    reader.insert.statement = statement;
    return std::move(reader.insert);
}

std::optional<InsertText> readBrokenInsert(std::string_view statement) {
    constexpr std::string_view valuesWord = "VALUES";
    const auto behindHead = statement.find(valuesWord);
    if (behindHead == statement.npos) return std::nullopt;
    Reader head{statement.substr(0, behindHead), {}};
    if (!database::cutTokens(head.statement, head.tokens) || !head.head()) return std::nullopt;
    const auto written = cutAt(betweenQuotes(statement.substr(behindHead + valuesWord.size())), "','");
    std::string mended = std::string(head.statement) + std::string(valuesWord) + " ";
    for (std::size_t i = 0; i < written.size(); ++i)
        mended.append(i == 0 ? "(" : ",").append(quotedText(asMeant(written[i])));
    return readInsert(mended + ")");
}

std::string statementWith(const InsertText& insert, std::string_view column, std::string_view value) {
    const InsertValue& old = *find(insert, column);
    return insert.statement.substr(0, old.begin) + quotedText(value) + insert.statement.substr(old.end);
}

std::string quotedText(std::string_view value) {
    return "'" + text::replaceAll(value, "'", "''") + "'";
}

} // namespace kestrel::setup
