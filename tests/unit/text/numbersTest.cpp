#include "text/numbers.hpp"

#include "randomText.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace kestrel::text {
namespace {

constexpr long long most = std::numeric_limits<long long>::max();
constexpr long long least = std::numeric_limits<long long>::min();

TEST(Numbers, TwoWaysToReadANumber) {
    struct Row {
        const char* name;
        std::string text;
        long long leading, whole;
    };
    const Row rows[] = {
        {"empty", "", 0, 0},
        {"blanks", "  ", 0, 0},
        {"digits", "0042", 42, 42},
        {"blanks around", " 42 ", 42, 42},
        {"minus", "-7", -7, -7},
        {"plus", "+7", 7, 7},
        {"two signs", "+-7", 0, 0},
        {"sign alone", "-", 0, 0},
        {"letters behind", "12345A", 12345, 0},
        {"letters in front", "A1", 0, 0},
        {"point", "1.5", 1, 0},
        {"blank inside", "1 2", 1, 0},
        {"full-width digits", "１２", 0, 0},
        {"too large", "99999999999999999999", most, most},
        {"too small", "-99999999999999999999", least, least},
        {"too large with plus", "+99999999999999999999", most, most},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(leadingNumber(row.text), row.leading);
        EXPECT_EQ(wholeNumber(row.text), row.whole);
    }
}

TEST(Numbers, AShortNumberStaysWithin16Bits) {
    EXPECT_EQ(leadingShort("6"), 6);
    EXPECT_EQ(leadingShort("99999"), 32767);
    EXPECT_EQ(leadingShort("-99999"), -32768);
    EXPECT_EQ(leadingShort("3月"), 3);
}

TEST(Numbers, ZeroFilledKeepsTheMinusInFront) {
    EXPECT_EQ(zeroFilled(7, 3), "007");
    EXPECT_EQ(zeroFilled(0, 3), "000");
    EXPECT_EQ(zeroFilled(-7, 3), "-007");
    EXPECT_EQ(zeroFilled(1234, 3), "1234");
    EXPECT_EQ(zeroFilled(5, 0), "5");
    EXPECT_EQ(zeroFilled(5, -1), "5");
    EXPECT_EQ(zeroFilled(least, 3), "-9223372036854775808");
}

TEST(Numbers, AWholeNumberIsItsOwnLeadingNumber) {
    std::mt19937 random(2);
    for (int i = 0; i < 2000; ++i) {
        const std::string text = test::randomText(random, test::oddPieces, 4);
        EXPECT_EQ(wholeNumber(text), isWholeNumber(text) ? leadingNumber(text) : 0) << text;
    }
}

} // namespace
} // namespace kestrel::text
