#include "text/numbers.hpp"

#include "text/characters.hpp"

#include <algorithm>
#include <charconv>
#include <limits>

namespace kestrel::text {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isSign(char c) {
    return c == '+' || c == '-';
}

} // namespace

long long leadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (!text.empty() && text[0] == '+') {
        text.remove_prefix(1);
        if (!text.empty() && isSign(text[0])) return 0;
    }
    long long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc::result_out_of_range) return number;
    return text[0] == '-' ? std::numeric_limits<long long>::min() : std::numeric_limits<long long>::max();
}

std::int16_t leadingShort(std::string_view text) {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(std::clamp<long long>(leadingNumber(text), Limits::min(), Limits::max()));
}

bool isWholeNumber(std::string_view text) {
    const std::string trimmed = trim(text);
    std::string_view digits = trimmed;
    if (!digits.empty() && isSign(digits[0])) digits.remove_prefix(1);
    return !digits.empty() && std::all_of(digits.begin(), digits.end(), isDigit);
}

long long wholeNumber(std::string_view text) {
    return isWholeNumber(text) ? leadingNumber(text) : 0;
}

std::string zeroFilled(long long number, int width) {
    const std::string written = std::to_string(number);
    const std::size_t sign = number < 0 ? 1 : 0;
    const std::size_t digits = written.size() - sign;
    const std::size_t wanted = static_cast<std::size_t>(std::max(width, 0));
    return written.substr(0, sign) + std::string(wanted - std::min(wanted, digits), '0') + written.substr(sign);
}

} // namespace kestrel::text
