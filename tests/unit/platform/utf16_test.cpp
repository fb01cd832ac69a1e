#include "platform/database/utf16.hpp"

#include <gtest/gtest.h>

namespace kestrel::test {

using namespace database;

namespace {

TEST(Utf16, thereAndBack) {
    for (const char* text : {"", "aé漢", "\xF0\xA0\xAE\xB7\xF4\x8F\xBF\xBF", "\xEF\xBF\xBF"})
        EXPECT_EQ(utf8(utf16(text)), text);
}

TEST(Utf16, replacesWhatIsNoCharacter) {
    for (const char* text : {"\x80", "\xC3", "\xE3\x81", "\xF0\xA0\xAE", "\xFF", "\xC0\x80"})
        EXPECT_EQ(utf16(text).front(), 0xFFFD) << text;
    EXPECT_EQ(utf8(utf16("\xED\xA0\x80!")), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD!") << "half of a pair";
    EXPECT_EQ(utf8(u"\xD842!"), "\xEF\xBF\xBD!");
    EXPECT_EQ(utf8(u"\xDFB7"), "\xEF\xBF\xBD");
}

} // namespace
} // namespace kestrel::test
