// Forms of field values: byte-counted limits, masks, quoting, telephone and date forms. Texts are UTF-8; lengths are
// counted in characters unless bytes of code page 932 are named. Pure functions; any text is taken.
#pragma once

#include <string>
#include <string_view>

namespace kestrel {

std::string excessNotice(std::string_view text, int maximumBytes); // "2文字オーバーです。", or empty when the text fits
std::string truncateToBytes(std::string_view text, int maximumBytes); // a character that goes over is dropped whole
std::string quoteSqlText(std::string_view text); // apostrophes doubled, blanks at the right end removed
// A number filled with zeros to the mask's width, "12" by "0000" to "0012"; any other text as it stands. Both are cut
// to the width from the left. An empty mask changes nothing.
std::string formatToMask(std::string_view value, std::string_view mask);
std::string zeroString(int count); // so many; none for 0 or less
std::string nineString(int count);
std::string nextCode(std::string_view code);   // the successor in the order 0 to 9, A to Z
std::string digitsOnly(std::string_view text); // ASCII digits
std::string stripPercent(std::string_view text);
std::string normalizeTelephone(std::string_view text); // digits with one hyphen behind the first group
// Turns the three into a real date: what is out of range rolls on, a day above 27 becomes the last of its month. Three
// noughts and a real date stay as they are written.
void normalizeDateParts(std::string& year, std::string& month, std::string& day);

} // namespace kestrel
