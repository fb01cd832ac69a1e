#include "platform/database/column_order.hpp"

namespace kestrel::database {

namespace {

bool isName(const Token& token) {
    return token.kind == TokenKind::word || token.kind == TokenKind::quoted || token.kind == TokenKind::bracket;
}

// The table of a SELECT that reads a single one; empty for any other.
std::string_view onlyTable(const Writer& writer, const Select& select) {
    const bool single = select.fromEnd == select.from + 2 && isName(writer.tokens[select.from + 1]);
    return single ? nameOf(writer.tokens[select.from + 1]) : std::string_view();
}

} // namespace

std::string_view orderOfNulls(const Writer& writer, const Select& select, std::size_t begin, std::size_t end) {
    const auto& tokens = writer.tokens;
    bool descends = false;
    if (end > begin && isOneOf(tokens[end - 1], {"ASC", "DESC"})) descends = isWord(tokens[--end], "DESC");
    const bool qualified = end == begin + 3 && isName(tokens[begin]) && isSign(tokens[begin + 1], '.');
    if ((!qualified && end != begin + 1) || !isName(tokens[end - 1])) return {};
    const std::string_view table = qualified ? nameOf(tokens[begin]) : onlyTable(writer, select);
    if (writer.required && writer.required->holds(table, nameOf(tokens[end - 1]))) return {};
    return descends ? " NULLS LAST" : " NULLS FIRST";
}

} // namespace kestrel::database
