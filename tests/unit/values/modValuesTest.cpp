#include "values/modValues.hpp"

#include "text/characters.hpp"

#include "../text/randomText.hpp"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

TEST(FieldLength, TheNoticeCountsTheCharactersOverTheLimit) {
    struct Row {
        const char *name, *text;
        int maximum;
        const char* expected;
    };
    const Row rows[] = {
        {"a text that fits", "abc", 4, ""},
        {"a text exactly at the limit", "山田", 4, ""},
        {"four full-width characters, limit 4", "山田太郎", 4, "2文字オーバーです。"},
        {"five ASCII letters, limit 4", "abcde", 4, "1文字オーバーです。"},
        {"a two-byte character across the limit", "a山", 2, "1文字オーバーです。"},
        {"limit 0", "abc", 0, "3文字オーバーです。"},
        {"an empty text, limit 0", "", 0, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(excessNotice(row.text, row.maximum), row.expected);
    }
}

TEST(FieldLength, TruncatingDropsTheCharacterThatWentOver) {
    struct Row {
        const char *name, *text;
        int maximum;
        const char* expected;
    };
    const Row rows[] = {
        {"a text exactly at the limit is not cut", "山田", 4, "山田"},
        {"a letter and a full-width character, limit 2, gives the letter", "a山", 2, "a"},
        {"ASCII", "abcde", 4, "abcd"},
        {"half-width kana are one byte", "ｱｲｳｴｵ", 4, "ｱｲｳｴ"},
        {"limit 0", "abc", 0, ""},
        {"a limit below 0", "abc", -1, ""},
        {"empty", "", 5, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(truncateToBytes(row.text, row.maximum), row.expected);
    }
}

TEST(Values, QuotingDoublesApostrophesAndTakesBlanksAtTheRightEnd) {
    EXPECT_EQ(quoteSqlText("O'Neil  "), "O''Neil");
    EXPECT_EQ(quoteSqlText("  a"), "  a");
    EXPECT_EQ(quoteSqlText(""), "");
    EXPECT_EQ(quoteSqlText("''"), "''''");
    EXPECT_EQ(quoteSqlText("山\t"), "山\t");
}

TEST(Values, Masks) {
    struct Row {
        const char *name, *value, *mask, *expected;
    };
    const Row rows[] = {
        {"an empty mask leaves the value", " 12a", "", " 12a"},
        {"a number is filled with zeros", "123", "000000", "000123"},
        {"an empty value stays empty", "", "00000", ""},
        {"a longer number loses its last digits", "1234567", "000000", "123456"},
        {"no number passes as it stands", "12A", "00000", "12A"},
        {"no number is cut", "山田太郎", "000", "山田太"},
        {"zeros", "0", "000", "000"},
        {"more zeros than the mask", "0000007", "000", "007"},
        {"blanks around", "  12 ", "00000", "00012"},
        {"blanks alone are no number", "  ", "000", "  "},
        {"a plus is dropped", "+12", "00000", "00012"},
        {"a minus counts in the cut", "-12", "00000", "-0001"},
        {"a sign alone is no number", "-", "000", "-"},
        {"two signs are no number", "--1", "000", "--1"},
        {"a fraction below half", "1.49", "000", "001"},
        {"half goes away from zero", "1.5", "000", "002"},
        {"half goes away from zero below it too", "-1.5", "0000", "-000"},
        {"a fraction that carries", "99.5", "000", "100"},
        {"a fraction alone", ".5", "000", "001"},
        {"a point behind", "5.", "000", "005"},
        {"a point alone is no number", ".", "000", "."},
        {"two points are no number", "1.2.3", "000", "1.2"},
        {"longer than any machine number", "1234567890123456789012345", "00000000", "12345678"},
        {"full-width digits are no number", "１２", "00000", "１２"},
        {"optional digits", "7", "##0", "7"},
        {"optional digits, none of them", "0", "##0", "0"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(formatToMask(row.value, row.mask), row.expected);
    }
}

TEST(Values, LowestAndHighestCodes) {
    EXPECT_EQ(zeroString(3), "000");
    EXPECT_EQ(nineString(6), "999999");
    EXPECT_EQ(zeroString(0), "");
    EXPECT_EQ(nineString(-1), "");
}

TEST(Values, TheNextCode) {
    const std::pair<const char*, const char*> rows[] = {
        {"A9", "AA"}, {"AZ", "AZ0"}, {"9", "A"},  {"", "0"},   {"0", "1"},   {"8", "9"},   {"A", "B"},
        {"Y", "Z"},   {"a", "a0"},   {"-", "-0"}, {"ｱ", "ｱ0"}, {"19", "1A"}, {"99", "9A"}, {"@", "@0"}};
    for (const auto& [code, next] : rows) EXPECT_EQ(nextCode(code), next) << code;
}

TEST(Values, DigitsAndPercent) {
    EXPECT_EQ(digitsOnly("(03) 1234-5678+"), "0312345678");
    EXPECT_EQ(digitsOnly("１2"), "2");
    EXPECT_EQ(digitsOnly(""), "");
    EXPECT_EQ(stripPercent("%山%田%"), "山田");
}

TEST(Values, OneFormOfATelephoneNumber) {
    const std::pair<const char*, const char*> rows[] = {{"03-1234-5678", "03-12345678"},
                                                        {"(03)1234-5678", "03-12345678"},
                                                        {"03 1234", "03-1234"},
                                                        {"1234-", "1234-"},
                                                        {"-123", "123"},
                                                        {"   -", ""},
                                                        {"   -  ", ""},
                                                        {"", ""},
                                                        {"   ", ""},
                                                        {"0312345678", "0312345678"},
                                                        {"  03", "-03"},
                                                        {"０３-12", "-12"},
                                                        {"03  ", "03"}};
    for (const auto& [typed, form] : rows) EXPECT_EQ(normalizeTelephone(typed), form) << typed;
}

TEST(Values, PartsOfADate) {
    struct Row {
        const char* name;
        std::string year, month, day, expected;
    };
    const Row rows[] = {
        {"all zero", "0000", "00", "00", "0000/00/00"},
        {"all empty", "", "", "", "//"},
        {"a real date isn't reformatted", "2024", "5", "7", "2024/5/7"},
        {"30 February", "2023", "2", "30", "2023/02/28"},
        {"30 February of a leap year", "2024", "2", "30", "2024/02/29"},
        {"31 April", "2023", "4", "31", "2023/04/30"},
        {"month 13 keeps the rolled date", "2023", "13", "5", "2024/01/05"},
        {"month 13 with a late day", "2023", "13", "31", "2024/01/31"},
        {"day 0", "2024", "3", "0", "2024/02/29"},
        {"day 99", "2024", "5", "99", "2024/05/31"},
        {"month 0", "2024", "0", "10", "2023/12/10"},
        {"a part that is no number", "2024", "5a", "10", "2023/12/10"},
        {"a date below year 0 leaves the texts", "0", "0", "1", "0/0/1"},
        {"a date above year 9999 leaves the texts", "9999", "13", "1", "9999/13/1"},
        {"year 0 is written", "0", "13", "1", "0001/01/01"},
    };
    for (Row row : rows) {
        SCOPED_TRACE(row.name);
        normalizeDateParts(row.year, row.month, row.day);
        EXPECT_EQ(row.year + "/" + row.month + "/" + row.day, row.expected);
    }
}

TEST(Values, EveryTextHasAnAnswer) {
    std::mt19937 random(7);
    for (int i = 0; i < 5000; ++i) {
        const std::string text = test::randomText(random, test::oddPieces);
        const int maximum = int(random() % 12);
        const std::string cut = truncateToBytes(text, maximum);
        EXPECT_TRUE(text.starts_with(cut));
        EXPECT_LE(text::byteLength932(cut), std::size_t(maximum));
        EXPECT_EQ(cut == text, excessNotice(text, maximum).empty()) << text << " " << maximum;
        EXPECT_LE(text::length(formatToMask(text, "00000")), 5u);
        EXPECT_EQ(digitsOnly(normalizeTelephone(text)), digitsOnly(text));
        EXPECT_EQ(normalizeTelephone(text).find_first_not_of("0123456789-"), std::string::npos);
        EXPECT_GE(nextCode(text).size(), 1u);
        EXPECT_EQ(quoteSqlText(text).find(' ', quoteSqlText(text).find_last_not_of(' ') + 1), std::string::npos);
        std::string year = test::randomText(random, test::oddPieces, 3),
                    month = test::randomText(random, test::oddPieces, 2);
        std::string day = text;
        normalizeDateParts(year, month, day);
    }
}

} // namespace
} // namespace kestrel
