// Forms of field values: byte-counted limits, masks, quoting, telephone and date forms. Texts are UTF-8; lengths are
// counted in characters unless bytes of code page 932 are named. Pure, but for checkFieldLength and
// updatePhoneDirectory (modDirectory.hpp).
#pragma once

#include <string>
#include <string_view>

namespace kestrel {

std::string excessNotice(std::string_view text, int maximumBytes); // "2文字オーバーです。", or empty when the text fits
std::string truncateToBytes(std::string_view text, int maximumBytes);
std::string quoteSqlText(std::string_view text); // apostrophes doubled, blanks at the right end removed
std::string formatToMask(std::string_view value, std::string_view mask);
std::string zeroString(int count);
std::string nineString(int count);
std::string nextCode(std::string_view code);   // the successor in the order 0 to 9, A to Z
std::string digitsOnly(std::string_view text); // ASCII digits
std::string stripPercent(std::string_view text);
std::string normalizeTelephone(std::string_view text); // digits with one hyphen behind the first group
void normalizeDateParts(std::string& year, std::string& month, std::string& day);

} // namespace kestrel
