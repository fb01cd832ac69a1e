#include "scenario/line.hpp"

#include "scenario/scenario_error.hpp"
#include "setup/pin.hpp"

#include <algorithm>

namespace kestrel::scenario {

namespace {

constexpr std::string_view outerBlanks = " \t\r";

std::string_view withoutOuterBlanks(std::string_view text) {
    const auto from = text.find_first_not_of(outerBlanks);
    if (from == std::string_view::npos) return {};
    return text.substr(from, text.find_last_not_of(outerBlanks) - from + 1);
}

// A path can begin behind this character: it is none that stands inside a path or at the end of one of its parts.
bool mayPrecedePath(char c) {
    const bool letterOrDigit = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return !letterOrDigit && std::string_view("%@/\\_.-").find(c) == std::string_view::npos;
}

// Position of the double quote that closes the one at 0; npos when none does.
std::size_t closingQuote(std::string_view text) {
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '\\')
            ++i;
        else if (text[i] == '"')
            return i;
    }
    return std::string_view::npos;
}

std::string cutQuoted(std::string_view& rest) {
    const std::size_t end = closingQuote(rest);
    if (end == std::string_view::npos) throw ScenarioError("a double quote is never closed");
    if (end + 1 < rest.size() && outerBlanks.find(rest[end + 1]) == std::string_view::npos)
        throw ScenarioError("something stands right behind a closing double quote");
    std::string word = unescaped(rest.substr(1, end - 1));
    rest.remove_prefix(end + 1);
    return word;
}

std::string withPins(std::string sql) {
    constexpr std::string_view opening = "{pin ";
    for (std::size_t at = sql.find(opening); at != std::string::npos; at = sql.find(opening, at)) {
        const std::size_t end = sql.find('}', at);
        if (end == std::string::npos) throw ScenarioError("{pin is never closed");
        const std::string stored = setup::storedPin(sql.substr(at + opening.size(), end - at - opening.size()));
        sql.replace(at, end + 1 - at, stored);
        at += stored.size();
    }
    return sql;
}

// Takes what one letter of a shape asks for.
void take(char letter, std::string_view& rest, const Places& places, Arguments& arguments) {
    const auto whole = [&](std::string text) {
        arguments.push_back(std::move(text));
        rest = {};
    };
    const bool empty = withoutOuterBlanks(rest).empty();
    if (empty && std::string_view("oTm").find(letter) != std::string_view::npos) return;
    if (empty) throw ScenarioError("an argument is missing");
    switch (letter) {
    case 't':
    case 'T':
        return whole(withPlaces(restText(rest), places));
    case 'q':
        return whole(restSql(rest, places));
    case 'l':
        return whole(withPlaces(withoutOuterBlanks(rest), places));
    default:
        arguments.push_back(withPlaces(*cutWord(rest), places));
        if (letter == 'm') take('m', rest, places, arguments);
    }
}

} // namespace

std::string trimmed(std::string_view text) {
    return std::string(withoutOuterBlanks(text));
}

std::string withPlaces(std::string_view text, const Places& places) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool begins = i + 1 < text.size() && text[i + 1] == '/' && (i == 0 || mayPrecedePath(text[i - 1]));
        if (begins && text[i] == '%')
            result += places.root;
        else if (begins && text[i] == '@')
            result += places.scratch;
        else
            result += text[i];
    }
    return result;
}

std::string unescaped(std::string_view text) {
    constexpr std::string_view letters = "\"\\nrt", meanings = "\"\\\n\r\t";
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t known =
            text[i] == '\\' && i + 1 < text.size() ? letters.find(text[i + 1]) : std::string_view::npos;
        if (known == std::string_view::npos) {
            result += text[i];
        } else {
            result += meanings[known];
            ++i;
        }
    }
    return result;
}

std::optional<std::string> cutWord(std::string_view& rest) {
    const auto from = rest.find_first_not_of(outerBlanks);
    if (from == std::string_view::npos) return std::nullopt;
    rest.remove_prefix(from);
    if (rest.front() == '"') return cutQuoted(rest);
    const std::size_t end = std::min(rest.find_first_of(outerBlanks), rest.size());
    std::string word(rest.substr(0, end));
    rest.remove_prefix(end);
    return word;
}

std::string restText(std::string_view rest) {
    const std::string_view text = withoutOuterBlanks(rest);
    const bool quoted = text.size() > 1 && text.front() == '"' && closingQuote(text) == text.size() - 1;
    return unescaped(quoted ? text.substr(1, text.size() - 2) : text);
}

std::string restSql(std::string_view rest, const Places& places) {
    return withPins(withPlaces(withoutOuterBlanks(rest), places));
}

bool cutName(std::string_view& rest, std::string_view words) {
    std::string_view left = withoutOuterBlanks(rest);
    while (!words.empty()) {
        const std::string_view word = words.substr(0, words.find(' '));
        words.remove_prefix(std::min(word.size() + 1, words.size()));
        const bool stands = left.starts_with(word) && (left.size() == word.size() ||
                                                       outerBlanks.find(left[word.size()]) != std::string_view::npos);
        if (!stands) return false;
        left = withoutOuterBlanks(left.substr(word.size()));
    }
    rest = left;
    return true;
}

Arguments splitArguments(std::string_view rest, std::string_view shape, const Places& places) {
    Arguments arguments;
    for (char letter : shape) take(letter, rest, places, arguments);
    if (!withoutOuterBlanks(rest).empty()) throw ScenarioError("too many arguments: " + trimmed(rest));
    return arguments;
}

} // namespace kestrel::scenario
