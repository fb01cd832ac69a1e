#include "setup/manual.hpp"

#include "setup/embedded.hpp"
#include "text/characters.hpp"

#include <algorithm>
#include <cstdint>

namespace kestrel::setup {

namespace {

struct Style {
    std::string_view mark, opening;
};
constexpr Style styles[] = {
    {"# ", "\\pard\\sa240\\b\\fs36 "},
    {"## ", "\\pard\\sb240\\sa120\\keepn\\b\\fs26 "},
    {"- ", "\\pard\\li360\\fi-240\\sa60\\b0\\fs21 \\bullet  "},
    {"", "\\pard\\sa120\\b0\\fs21 "},
};

char32_t codePoint(std::string_view character) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
    if (character.size() == 1) return byte(0);
    char32_t value = byte(0) & (0xFFU >> (character.size() + 1));
    for (std::size_t i = 1; i < character.size(); ++i) value = value << 6 | (byte(i) & 0x3FU);
    return value;
}

// A unit of UTF-16 as a signed number, with a sign for readers that know none.
std::string escapedUnit(std::uint32_t unit) {
    return "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
}

std::string escaped(std::string_view character) {
    constexpr char32_t firstAbove = 0x10000;
    const char32_t value = codePoint(character);
    if (character.size() == 1)
        return (value == '\\' || value == '{' || value == '}' ? "\\" : "") + std::string(character);
    if (value < firstAbove) return escapedUnit(value);
    const std::uint32_t above = value - firstAbove;
    return escapedUnit(0xD800 + (above >> 10)) + escapedUnit(0xDC00 + (above & 0x3FF));
}

std::string paragraph(std::string_view line) {
    const Style& style = *std::ranges::find_if(styles, [&](const Style& each) { return line.starts_with(each.mark); });
    std::string result(style.opening);
    for (std::string_view character : text::characters(line.substr(style.mark.size()))) result += escaped(character);
    return result + "\\par\n";
}

} // namespace

std::string richText(std::string_view plain) {
    std::string result = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset128 Noto Sans CJK JP;}}\\f0\n";
    while (!plain.empty()) {
        const std::size_t end = std::min(plain.find('\n'), plain.size());
        if (end > 0) result += paragraph(plain.substr(0, end));
        plain.remove_prefix(std::min(end + 1, plain.size()));
    }
    return result + "}\n";
}

std::string manualText() {
    return richText(embeddedFile("manual"));
}

} // namespace kestrel::setup
