#include "text/characters.hpp"

#include "randomText.hpp"

#include <gtest/gtest.h>

namespace kestrel::text {
namespace {

TEST(Characters, LengthCountsCodePointsAndEachBrokenByte) {
    struct Row {
        const char* name;
        std::string text;
        std::size_t length, bytes932;
    };
    const Row rows[] = {
        {"empty", "", 0, 0},
        {"ASCII", "abc", 3, 3},
        {"full-width", "山田", 2, 4},
        {"half-width kana with its mark", "ｶﾞ", 2, 2},
        {"first and last half-width form", "｡ﾟ", 2, 2},
        {"neighbours of the half-width forms", "｠ﾠ", 2, 4},
        {"control characters", "\x01\x7F", 2, 2},
        {"Latin beyond ASCII", "é", 1, 2},
        {"beyond the basic plane", "𠮟", 1, 2},
        {"lone continuation byte", "\x80", 1, 2},
        {"sequence that breaks off", "\xE3\x81", 2, 4},
        {"overlong form", "\xC0\xAF", 2, 4},
        {"overlong form of three bytes", "\xE0\x80\xAF", 3, 6},
        {"surrogate", "\xED\xA0\x80", 3, 6},
        {"above U+10FFFF", "\xF4\x90\x80\x80", 4, 8},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(length(row.text), row.length);
        EXPECT_EQ(characters(row.text).size(), row.length);
        EXPECT_EQ(byteLength932(row.text), row.bytes932);
    }
}

TEST(Characters, SlicesCountCharactersAndAreShortAtTheEnd) {
    EXPECT_EQ(slice("山田太郎", 1, 2), "田太");
    EXPECT_EQ(slice("山田太郎", 3, 9), "郎");
    EXPECT_EQ(slice("山田", 2, 1), "");
    EXPECT_EQ(slice("山田", 9, 1), "");
    EXPECT_EQ(slice("abc", 1, 0), "");
    EXPECT_EQ(first("山田太郎", 2), "山田");
    EXPECT_EQ(first("山", 5), "山");
}

TEST(Characters, TrimmingTakesBlanksOnly) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trimLeft("  a "), "a ");
    EXPECT_EQ(trimRight(" a  "), " a");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(""), "");
    EXPECT_EQ(trim("\ta\t"), "\ta\t");
    EXPECT_EQ(trim("　a　"), "　a　");
}

TEST(Characters, PaddingCutsOrFillsToTheWidth) {
    EXPECT_EQ(padRight("山", 3), "山  ");
    EXPECT_EQ(padRight("山田太郎", 3), "山田太");
    EXPECT_EQ(padRight("", 2), "  ");
    EXPECT_EQ(padRight("a", 0), "");
}

TEST(Characters, LetterCaseIsAsciiOnly) {
    EXPECT_EQ(lowerAscii("AbZ[@Ａ"), "abz[@Ａ");
    EXPECT_EQ(upperAscii("aBz{`ａ"), "ABZ{`ａ");
}

TEST(Characters, ReplacingWalksOnBehindTheReplacement) {
    EXPECT_EQ(replaceAll("a'b'", "'", "''"), "a''b''");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(replaceAll("", "a", "x"), "");
}

TEST(Characters, FindsParts) {
    EXPECT_TRUE(contains("abc", "bc"));
    EXPECT_TRUE(contains("abc", ""));
    EXPECT_FALSE(contains("abc", "cb"));
    EXPECT_TRUE(startsWith("abc", "ab"));
    EXPECT_FALSE(startsWith("abc", "bc"));
}

TEST(Characters, AnyTextIsTheSumOfItsCharacters) {
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        const std::string text = test::randomText(random, test::oddPieces);
        std::string joined;
        std::size_t bytes = 0;
        for (const std::string_view character : characters(text)) {
            joined += character;
            bytes += byteLength932(character);
        }
        EXPECT_EQ(joined, text);
        EXPECT_EQ(byteLength932(text), bytes);
        const std::size_t cut = random() % 14;
        EXPECT_EQ(first(text, cut) + slice(text, cut, text.size()), text);
    }
}

} // namespace
} // namespace kestrel::text
