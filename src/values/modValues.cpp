#include "values/modValues.hpp"

#include "text/characters.hpp"
#include "text/dates.hpp"
#include "text/numbers.hpp"

#include <algorithm>

namespace kestrel {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool exceeds(std::size_t bytes, int maximumBytes) {
    return maximumBytes < 0 || bytes > std::size_t(maximumBytes);
}

bool fits(std::string_view text, int maximumBytes) {
    return !exceeds(text::byteLength932(text), maximumBytes);
}

// How many characters it takes to go over the limit, counting the one that does.
std::size_t charactersOverLimit(std::string_view text, int maximumBytes) {
    std::size_t count = 0, bytes = 0;
    for (const std::string_view character : text::characters(text)) {
        if (exceeds(bytes, maximumBytes)) break;
        bytes += text::byteLength932(character);
        ++count;
    }
    return count;
}

// A number as a person writes one, taken apart. Both digit strings may be empty, not both at once.
struct DecimalText {
    bool negative = false;
    std::string integer, fraction;
};

bool takeDecimal(std::string_view text, DecimalText& number) {
    const std::string trimmed = text::trim(text);
    std::string_view rest = trimmed;
    if (rest.empty()) return false;
    number.negative = rest[0] == '-';
    if (rest[0] == '-' || rest[0] == '+') rest.remove_prefix(1);
    const std::size_t point = std::min(rest.find('.'), rest.size());
    number.integer = rest.substr(0, point);
    number.fraction = point < rest.size() ? rest.substr(point + 1) : "";
    const std::string digits = number.integer + number.fraction;
    return !digits.empty() && std::all_of(digits.begin(), digits.end(), isDigit);
}

// Adds one to a string of digits; "99" becomes "100".
std::string plusOne(std::string digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') return ++digits[i], digits;
        digits[i] = '0';
    }
    return "1" + digits;
}

// Digits without a fraction, half rounded away from zero, filled with zeros up to the width.
std::string roundedDigits(const DecimalText& number, std::size_t width) {
    std::string digits = number.integer;
    if (!number.fraction.empty() && number.fraction[0] >= '5') digits = plusOne(digits);
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

std::string formatted(std::string_view value, std::string_view mask) {
    DecimalText number;
    if (!takeDecimal(value, number)) return std::string(value);
    const std::string digits = roundedDigits(number, std::size_t(std::count(mask.begin(), mask.end(), '0')));
    const bool zero = digits.find_first_not_of('0') == digits.npos;
    return number.negative && !zero ? "-" + digits : digits;
}

} // namespace

std::string excessNotice(std::string_view text, int maximumBytes) {
    if (fits(text, maximumBytes)) return "";
    const std::size_t over = text::length(text) - charactersOverLimit(text, maximumBytes) + 1;
    return std::to_string(over) + "文字オーバーです。";
}

std::string truncateToBytes(std::string_view text, int maximumBytes) {
    if (fits(text, maximumBytes)) return std::string(text);
    const std::size_t count = charactersOverLimit(text, maximumBytes);
    return text::first(text, count > 0 ? count - 1 : 0);
}

std::string quoteSqlText(std::string_view text) {
    return text::trimRight(text::replaceAll(text, "'", "''"));
}

std::string formatToMask(std::string_view value, std::string_view mask) {
    return mask.empty() ? std::string(value) : text::first(formatted(value, mask), text::length(mask));
}

std::string zeroString(int count) {
    return std::string(std::size_t(std::max(count, 0)), '0');
}

std::string nineString(int count) {
    return std::string(std::size_t(std::max(count, 0)), '9');
}

std::string nextCode(std::string_view code) {
    if (code.empty()) return "0";
    std::string next(code);
    char& last = next.back();
    if ((last >= '0' && last <= '8') || (last >= 'A' && last <= 'Y')) return ++last, next;
    if (last == '9') return last = 'A', next;
    return next + "0"; // nothing carries into the character before it
}

std::string digitsOnly(std::string_view text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), isDigit);
    return digits;
}

std::string stripPercent(std::string_view text) {
    return text::replaceAll(text, "%", "");
}

std::string normalizeTelephone(std::string_view text) {
    const std::string typed = text::trimRight(text);
    if (typed == "   -") return "";
    std::string result;
    bool first = true, separated = false;
    for (const std::string_view character : text::characters(typed)) {
        if (isDigit(character[0])) {
            result += character;
        } else if (!first && !separated) {
            result += '-';
            separated = true;
        }
        first = false;
    }
    return result;
}

void normalizeDateParts(std::string& year, std::string& month, std::string& day) {
    const long long y = text::wholeNumber(year), m = text::wholeNumber(month), d = text::wholeNumber(day);
    if (y == 0 && m == 0 && d == 0) return;
    text::Date date = text::dateFromParts(y, m, d);
    if (date.year == y && date.month == m && date.day == d) return;
    if (d > 27) date = text::lastDayOfMonth(text::dateFromParts(y, m, 1)); // any day above 27 may be an overflow
    if (date.year < 0 || date.year > 9999) return;
    year = text::zeroFilled(date.year, 4);
    month = text::zeroFilled(date.month, 2);
    day = text::zeroFilled(date.day, 2);
}

} // namespace kestrel
