#include "values/modFullWidth.hpp"

#include "text/characters.hpp"

#include "../text/randomText.hpp"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

TEST(FullWidth, Rows) {
    struct Row {
        const char *name, *text, *expected;
    };
    const Row rows[] = {
        {"empty", "", ""},
        {"a text that is already full-width", "連絡台帳入力", "連絡台帳入力"},
        {"a base kana with a mark gives one character", "ｶﾞ", "ガ"},
        {"a base with no voiced form keeps its mark", "ﾅﾞ", "ナﾞ"},
        {"a voiced base with a semi-voiced mark keeps it", "ｶﾟ", "カﾟ"},
        {"a semi-voiced mark", "ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ", "パピプペポ"},
        {"a mark as the first character", "ﾞｱ", "ﾞア"},
        {"a base kana as the very last character", "ｱｶ", "アカ"},
        {"an apostrophe", "'", "\u2019"},
        {"a backslash", "\\", "\uFFE5"},
        {"blank, double quote, ^ and back quote stay", " \"^`", " \"^`"},
        {"the prolonged sound mark", "ｰ", "ー"},
        {"half-width punctuation stays", "｡､｢｣･", "｡､｢｣･"},
        {"all voiced kana", "ｳﾞｶﾞｷﾞｸﾞｹﾞｺﾞｻﾞｼﾞｽﾞｾﾞｿﾞﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ", "ヴガギグゲゴザジズゼゾダヂヅデドバビブベボ"},
        {"small kana", "ｦｧｨｩｪｫｯｬｭｮ", "ヲァィゥェォッャュョ"},
        {"a mixed text", "ﾏﾆｭｱﾙ No.1", "マニュアル Ｎｏ．１"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(toFullWidth(row.text), row.expected);
    }
}

std::string codePoint(unsigned code) {
    return {char(0xE0 | (code >> 12)), char(0x80 | ((code >> 6) & 0x3F)), char(0x80 | (code & 0x3F))};
}

TEST(FullWidth, PrintableAsciiLies0xFEE0Above) {
    for (char c = '!'; c <= '~'; ++c) {
        if (std::string("\"^`'\\").find(c) != std::string::npos) continue;
        EXPECT_EQ(toFullWidth(std::string(1, c)), codePoint(0xFEE0u + unsigned(c))) << c;
    }
}

// The full-width kana stand in the order of the half-width ones, but for the voiced and small forms between them.
TEST(FullWidth, FiftyFiveKanaHaveARow) {
    int converted = 0;
    for (unsigned code = 0xFF66; code <= 0xFF9D; ++code) {
        const std::string wide = toFullWidth(codePoint(code));
        if (code != 0xFF70 && wide >= "ァ" && wide <= "ン") ++converted;
    }
    EXPECT_EQ(converted, 55);
}

TEST(FullWidth, AnyTextTwiceIsTheSameAsOnce) {
    std::mt19937 random(6);
    for (int i = 0; i < 2000; ++i) {
        const std::string once = toFullWidth(test::randomText(random, test::oddPieces));
        EXPECT_EQ(toFullWidth(once), once);
    }
}

} // namespace
} // namespace kestrel
