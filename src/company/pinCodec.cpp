#include "company/pinCodec.hpp"

#include <cstdint>

namespace kestrel {

namespace {

using Byte = std::uint8_t;

constexpr std::string_view hexDigits = "0123456789ABCDEF";
constexpr std::size_t checkBytes = 2;

// What is added to the byte at a position: equal characters of a PIN don't look equal.
Byte shiftAt(std::size_t position) {
    return static_cast<Byte>(0x5D + 0x2B * position + (position * position) % 7);
}

Byte toggled(Byte byte) {
    return static_cast<Byte>(byte ^ 0xA6);
}

// Two running sums: the second one notices bytes that changed places.
std::string checkOf(std::string_view plain) {
    unsigned sum = 0x4B, sumOfSums = 0x17;
    for (const char c : plain) {
        sum = (sum + static_cast<Byte>(c)) % 251;
        sumOfSums = (sumOfSums + sum) % 251;
    }
    return {static_cast<char>(sum), static_cast<char>(sumOfSums)};
}

int hexValue(char digit) {
    const char upper = digit >= 'a' && digit <= 'f' ? static_cast<char>(digit - 'a' + 'A') : digit;
    const std::size_t value = hexDigits.find(upper);
    return value == hexDigits.npos ? -1 : static_cast<int>(value);
}

// False when the text is no row of byte pairs.
bool bytesFromHex(std::string_view hex, std::string& bytes) {
    if (hex.size() % 2 != 0) return false;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        const int high = hexValue(hex[i]), low = hexValue(hex[i + 1]);
        if (high < 0 || low < 0) return false;
        bytes += static_cast<char>(16 * high + low);
    }
    return true;
}

} // namespace

std::string encode(std::string_view plain) {
    const std::string whole = checkOf(plain) + std::string(plain);
    std::string stored;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        const Byte byte = toggled(static_cast<Byte>(static_cast<Byte>(whole[i]) + shiftAt(i)));
        stored += hexDigits[byte / 16];
        stored += hexDigits[byte % 16];
    }
    return stored;
}

std::string decode(std::string_view stored) {
    std::string whole;
    if (!bytesFromHex(stored, whole) || whole.size() < checkBytes) return "";
    for (std::size_t i = 0; i < whole.size(); ++i)
        whole[i] = static_cast<char>(toggled(static_cast<Byte>(whole[i])) - shiftAt(i));
    const std::string plain = whole.substr(checkBytes);
    return checkOf(plain) == whole.substr(0, checkBytes) ? plain : "";
}

} // namespace kestrel
