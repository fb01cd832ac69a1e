#include "company/pinCodec.hpp"

#include "../text/randomText.hpp"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

TEST(PinCodec, GivesBackWhatWasStored) {
    for (const std::string plain : {"1234", "A", "0000", "ABCDEFGH", "漢字", ""})
        EXPECT_EQ(decode(encode(plain)), plain);
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i) {
        const std::string plain = test::randomText(random, test::oddPieces);
        EXPECT_EQ(decode(encode(plain)), plain);
    }
}

// Rows of an installation keep their meaning for good, so the form itself is held fast.
TEST(PinCodec, TheStoredFormStaysWhatItIs) {
    EXPECT_EQ(encode("1234"), "D1694EB498CA");
}

TEST(PinCodec, TheStoredFormIsHexadecimalAndShowsNeitherPinNorRepeats) {
    const std::string stored = encode("7777");
    EXPECT_EQ(stored.find_first_not_of("0123456789ABCDEF"), stored.npos);
    EXPECT_EQ(stored.find("37"), stored.npos);
    EXPECT_NE(stored.substr(4, 2), stored.substr(6, 2));
    EXPECT_NE(encode("1234"), encode("2134"));
}

TEST(PinCodec, MalformedTextsDecodeToNothing) {
    const std::string stored = encode("1234");
    EXPECT_EQ(decode(""), "");
    EXPECT_EQ(decode("A"), "");
    EXPECT_EQ(decode("AB"), "");
    EXPECT_EQ(decode("1234"), "");
    EXPECT_EQ(decode(stored.substr(1)), "");
    EXPECT_EQ(decode(stored + "0"), "");
    EXPECT_EQ(decode(stored + "00"), "");
    EXPECT_EQ(decode(stored.substr(0, stored.size() - 2)), "");
    EXPECT_EQ(decode("G" + stored.substr(1)), "");
    EXPECT_EQ(decode(stored.substr(0, 4) + stored.substr(6, 2) + stored.substr(4, 2) + stored.substr(8)), "");
}

TEST(PinCodec, LowerCaseDigitsReadToo) {
    std::string stored = encode("1234");
    for (char& c : stored)
        if (c >= 'A' && c <= 'F') c = char(c - 'A' + 'a');
    EXPECT_EQ(decode(stored), "1234");
}

TEST(PinCodec, EverySingleWrongDigitIsNoticed) {
    const std::string stored = encode("1234");
    for (std::size_t i = 0; i < stored.size(); ++i)
        for (const char digit : std::string("0123456789ABCDEF")) {
            std::string wrong = stored;
            wrong[i] = digit;
            EXPECT_EQ(decode(wrong), wrong == stored ? "1234" : "") << wrong;
        }
}

} // namespace
} // namespace kestrel
