#include "platform/database/utf16.hpp"

#include <cstddef>

namespace kestrel::database {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstOfPairs = 0x10000;

struct Taken {
    char32_t character;
    std::size_t bytes;
};

bool follows(std::string_view text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

// The character of so many bytes that begins there; its first byte holds the given bits of it.
Taken takeLong(std::string_view text, std::size_t at, std::size_t bytes, char32_t bits, char32_t least) {
    for (std::size_t i = 1; i < bytes; ++i) {
        if (!follows(text, at + i)) return {replacement, 1};
        bits = (bits << 6) | (static_cast<unsigned char>(text[at + i]) & 0x3F);
    }
    const bool real = bits >= least && bits < 0x110000 && (bits < 0xD800 || bits > 0xDFFF);
    return real ? Taken{bits, bytes} : Taken{replacement, 1};
}

Taken take(std::string_view text, std::size_t at) {
    const auto first = static_cast<unsigned char>(text[at]);
    if (first < 0x80) return {first, 1};
    if (first < 0xC0) return {replacement, 1};
    if (first < 0xE0) return takeLong(text, at, 2, first & 0x1F, 0x80);
    if (first < 0xF0) return takeLong(text, at, 3, first & 0x0F, 0x800);
    return takeLong(text, at, 4, first & 0x07, firstOfPairs);
}

bool isFirstHalf(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}

bool isSecondHalf(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

void appendCharacter(std::string& out, char32_t character) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80) {
        out += static_cast<char>(character);
    } else if (character < 0x800) {
        out += static_cast<char>(0xC0 | (character >> 6));
        tail(0);
    } else if (character < firstOfPairs) {
        out += static_cast<char>(0xE0 | (character >> 12));
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | (character >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace

std::u16string utf16(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        auto [character, bytes] = take(text, at);
        at += bytes;
        if (character < firstOfPairs) {
            out += static_cast<char16_t>(character);
        } else {
            character -= firstOfPairs;
            out += static_cast<char16_t>(0xD800 + (character >> 10));
            out += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        }
    }
    return out;
}

void appendUtf8(std::string& out, std::u16string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (isFirstHalf(unit) && at + 1 < text.size() && isSecondHalf(text[at + 1])) {
            ++at;
            appendCharacter(out, firstOfPairs + ((unit & 0x3FFU) << 10) + (text[at] & 0x3FFU));
        } else {
            appendCharacter(out, isFirstHalf(unit) || isSecondHalf(unit) ? replacement : unit);
        }
    }
}

std::string utf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size() * 3);
    appendUtf8(out, text);
    return out;
}

} // namespace kestrel::database
