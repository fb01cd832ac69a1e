#include "platform/database/connection_text.hpp"

#include "platform/database/names.hpp"

namespace kestrel::database {

namespace {

std::string_view trimmed(std::string_view text) {
    auto first = text.find_first_not_of(' ');
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Takes the value that begins the text, up to its closing quote.
std::string takeQuoted(std::string_view& text) {
    char quote = text.front();
    std::string value;
    std::size_t i = 1;
    for (; i < text.size(); ++i) {
        if (text[i] == quote && (++i == text.size() || text[i] != quote)) break;
        value += text[i];
    }
    text.remove_prefix(std::min(text.find(';', std::min(i, text.size())), text.size()));
    return value;
}

std::string takeValue(std::string_view& text) {
    auto first = text.find_first_not_of(' ');
    if (first != text.npos && (text[first] == '"' || text[first] == '\'')) {
        text.remove_prefix(first);
        return takeQuoted(text);
    }
    auto end = std::min(text.find(';'), text.size());
    std::string value(trimmed(text.substr(0, end)));
    text.remove_prefix(end);
    return value;
}

} // namespace

std::string connectionValue(std::string_view text, std::string_view key) {
    std::string found;
    while (!text.empty()) {
        auto end = std::min(text.find_first_of("=;"), text.size());
        bool wanted = sameName(trimmed(text.substr(0, end)), key);
        bool pair = end < text.size() && text[end] == '=';
        text.remove_prefix(pair ? end + 1 : end);
        std::string value = pair ? takeValue(text) : std::string();
        if (wanted) found = value;
        if (!text.empty()) text.remove_prefix(1);
    }
    return found;
}

std::string pairValue(std::string_view value) {
    const bool plain = trimmed(value) == value && value.find(';') == value.npos &&
                       (value.empty() || (value.front() != '"' && value.front() != '\''));
    if (plain) return std::string(value);
    std::string text = "\"";
    for (const char c : value) text.append(c == '"' ? 2 : 1, c);
    return text + "\"";
}

std::string mainConnectionText(const MainDefinition& definition) {
    const std::string head = "Provider=" + definition.provider + ";User ID=" + definition.user +
                             ";Password=" + definition.password + ";Data Source=";
    if (definition.kind == "S") return head + definition.server + ";Initial Catalog=" + definition.catalog + ";";
    return head + definition.dataSource + ";";
}

} // namespace kestrel::database
