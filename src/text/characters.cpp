#include "text/characters.hpp"

#include <algorithm>

namespace kestrel::text {

namespace {

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// How many bytes the first byte of a sequence announces; 0 when no sequence begins with it.
std::size_t announcedSize(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

// Overlong forms, surrogates and what lies above U+10FFFF betray themselves in the second byte.
bool secondByteFits(unsigned char lead, unsigned char second) {
    switch (lead) {
    case 0xE0:
        return second >= 0xA0;
    case 0xED:
        return second <= 0x9F;
    case 0xF0:
        return second >= 0x90;
    case 0xF4:
        return second <= 0x8F;
    default:
        return true;
    }
}

// Bytes of the character at the beginning of a text that isn't empty.
std::size_t characterSize(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t size = announcedSize(byte(0));
    if (size <= 1 || size > text.size()) return 1;
    for (std::size_t i = 1; i < size; ++i)
        if (!isContinuation(byte(i))) return 1;
    return secondByteFits(byte(0), byte(1)) ? size : 1;
}

std::string mapBytes(std::string_view text, char from, char to, int step) {
    std::string result(text);
    for (char& c : result)
        if (c >= from && c <= to) c = static_cast<char>(c + step);
    return result;
}

// UTF-8 keeps the order of code points, so a range of them is a range of texts.
bool isOneByte932(std::string_view character) {
    if (character.size() == 1) return static_cast<unsigned char>(character[0]) < 0x80;
    return character >= "\uFF61" && character <= "\uFF9F";
}

} // namespace

std::size_t length(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); text.remove_prefix(characterSize(text))) ++count;
    return count;
}

std::vector<std::string_view> characters(std::string_view text) {
    std::vector<std::string_view> result;
    result.reserve(text.size());
    while (!text.empty()) {
        result.push_back(text.substr(0, characterSize(text)));
        text.remove_prefix(result.back().size());
    }
    return result;
}

std::string slice(std::string_view text, std::size_t from, std::size_t count) {
    for (; from > 0 && !text.empty(); --from) text.remove_prefix(characterSize(text));
    std::string_view rest = text;
    for (; count > 0 && !rest.empty(); --count) rest.remove_prefix(characterSize(rest));
    return std::string(text.substr(0, text.size() - rest.size()));
}

std::string first(std::string_view text, std::size_t count) {
    return slice(text, 0, count);
}

std::size_t byteLength932(std::string_view text) {
    std::size_t bytes = 0;
    while (!text.empty()) {
        const std::size_t size = characterSize(text);
        bytes += isOneByte932(text.substr(0, size)) ? 1 : 2;
        text.remove_prefix(size);
    }
    return bytes;
}

std::string trimLeft(std::string_view text) {
    return std::string(text.substr(std::min(text.find_first_not_of(' '), text.size())));
}

std::string trimRight(std::string_view text) {
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1)); // npos + 1 is 0: nothing but blanks
}

std::string trim(std::string_view text) {
    return trimLeft(trimRight(text));
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != text.npos;
}

bool startsWith(std::string_view text, std::string_view part) {
    return text.starts_with(part);
}

std::string padRight(std::string_view text, std::size_t width) {
    std::string result = first(text, width);
    return result.append(width - length(result), ' ');
}

std::string lowerAscii(std::string_view text) {
    return mapBytes(text, 'A', 'Z', 'a' - 'A');
}

std::string upperAscii(std::string_view text) {
    return mapBytes(text, 'a', 'z', 'A' - 'a');
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view by) {
    std::string result;
    while (!what.empty()) {
        const std::size_t at = text.find(what);
        if (at == text.npos) break;
        result.append(text.substr(0, at)).append(by);
        text.remove_prefix(at + what.size());
    }
    return result.append(text);
}

} // namespace kestrel::text
