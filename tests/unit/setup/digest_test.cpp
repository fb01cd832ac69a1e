#include "setup/digest.hpp"

#include <gtest/gtest.h>

#include <utility>

namespace kestrel::setup {

namespace {

using Values = std::vector<std::optional<std::string_view>>;

// Of rows of texts; the columns named in numbers are numbers.
Digest digestOf(const std::vector<Values>& rows, std::vector<bool> numbers = {false, false, false},
                bool emptyIsNull = false) {
    Digest digest;
    for (const Values& row : rows) addRow(digest, {numbers, emptyIsNull}, row);
    return digest;
}

} // namespace

TEST(DigestTest, doesNotDependOnTheOrderOfRows) {
    EXPECT_EQ(digestOf({{"a", "b", "c"}, {"d", "e", "f"}, {"", "", ""}}),
              digestOf({{"", "", ""}, {"d", "e", "f"}, {"a", "b", "c"}}));
}

TEST(DigestTest, tellsWhateverDiffers) {
    const Digest one = digestOf({{"a", "b", "c"}, {"d", "e", "f"}});
    const std::vector<std::vector<Values>> others{
        {{"a", "b", "c"}},
        {{"a", "b", "c"}, {"d", "e", "g"}},
        {{"a", "b", "c"}, {"d", "f", "e"}},
        {{"a", "bc", ""}, {"d", "e", "f"}},
        {{"a", "b", "f"}, {"d", "e", "c"}},
        {{"a", "b", "c"}, {"d", "e", "f "}},
        {{"a", "b", "c"}, {"d", "e", "f"}, {"d", "e", "f"}},
        {{"a", "b", "c"}, {"a", "b", "c"}, {"d", "e", "f"}, {"d", "e", "f"}},
    };
    for (const auto& other : others) EXPECT_NE(digestOf(other), one);
    EXPECT_NE(digestOf({{"1", "", ""}, {"1", "", ""}}), digestOf({{"2", "", ""}, {"2", "", ""}}));
}

TEST(DigestTest, aNullIsNoEmptyTextUnlessTheServerKnowsNone) {
    const Values null{std::nullopt, "b", "c"}, empty{"", "b", "c"};
    EXPECT_NE(digestOf({null}), digestOf({empty}));
    EXPECT_EQ(digestOf({null}, {false, false, false}, true), digestOf({empty}, {false, false, false}, true));
}

TEST(DigestTest, aNumberCountsByItsValue) {
    const std::vector<bool> second{false, true, false};
    EXPECT_EQ(digestOf({{"1.0", "1.0", ""}}, second), digestOf({{"1.0", "1", ""}}, second));
    EXPECT_NE(digestOf({{"1.0", "1", ""}}, second), digestOf({{"1", "1", ""}}, second));
    EXPECT_NE(digestOf({{"1", "1", ""}}, second), digestOf({{"1", "10", ""}}, second));
}

TEST(DigestTest, columnsAreNumbersByTheirDefinition) {
    const Counting counting = countingFor(tableNamed("M得意先"), {"コード", "定価掛率", "ランク"}, true);
    EXPECT_EQ(counting.numbers, (std::vector<bool>{false, true, false}));
    EXPECT_TRUE(counting.emptyIsNull);
}

TEST(DigestTest, numbersHaveOnePlainForm) {
    const std::vector<std::vector<const char*>> same{
        {"0", "0.00", "-0", "+0", "00", "0e5", ".0"},
        {"1", "1.0", "01", "+1", "1.", "10e-1", "0.1E+1"},
        {"100", "1e2", "1.0e+02", "100.000"},
        {"-12.5", "-12.50", "-1.25e1", "-0012.5"},
        {"0.05", ".05", "5e-2"},
        {"100000000000000000000", "1e20", "1.0e+20"},
    };
    for (const auto& group : same) {
        for (const char* text : group) EXPECT_EQ(plainNumber(text), plainNumber(group[0])) << text;
    }
    for (std::size_t i = 0; i < same.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) EXPECT_NE(plainNumber(same[i][0]), plainNumber(same[j][0]));
    }
    for (const char* text : {"", "-", ".", "e1", "1e", "1e1x", "1.2.3", "青", "1 ", "0x1", "1e99999999999"})
        EXPECT_EQ(plainNumber(text), text);
}

} // namespace kestrel::setup
