// Two ways to read a number out of a text; each caller says which it means. Neither ever throws; a number that is too
// large stays at the largest.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrel::text {

long long leadingNumber(std::string_view text);   // blanks, sign, digits up to the first other character; else 0
long long wholeNumber(std::string_view text);     // 0 unless the whole text is one (blanks at both ends allowed)
std::int16_t leadingShort(std::string_view text); // the leading number, held within 16 bits
bool isWholeNumber(std::string_view text);

// The number with leading zeros up to width digits, a minus in front of them: zeroFilled(7, 3) is "007".
std::string zeroFilled(long long number, int width);

} // namespace kestrel::text
