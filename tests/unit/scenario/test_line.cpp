// How a line falls apart into verb and arguments.
#include "scenario/line.hpp"
#include "scenario/scenario_error.hpp"

#include <gtest/gtest.h>

using namespace kestrel::scenario;

namespace {

const Places places{"/inst", "/scratch"};

Arguments split(std::string_view rest, std::string_view shape) {
    return splitArguments(rest, shape, places);
}

TEST(Line, WordsEndAtBlanks) {
    EXPECT_EQ(split("  a   b ", "ww"), (Arguments{"a", "b"}));
}

TEST(Line, QuotedWordsHoldBlanksAndMayBeEmpty) {
    EXPECT_EQ(split(R"("a b" "" c)", "www"), (Arguments{"a b", "", "c"}));
}

TEST(Line, EscapesCountInQuotesAndTexts) {
    EXPECT_EQ(split(R"("a\"b\\c\nd\re\tf")", "w"), (Arguments{"a\"b\\c\nd\re\tf"}));
    EXPECT_EQ(split(R"(x 入力がありました。\rクリアしますか？)", "wt"),
              (Arguments{"x", "入力がありました。\rクリアしますか？"}));
}

TEST(Line, BareWordsAndSqlStandAsTheyAre) {
    EXPECT_EQ(split(R"(HKEY_CURRENT_USER\new)", "w"), (Arguments{R"(HKEY_CURRENT_USER\new)"}));
    EXPECT_EQ(split(R"(SELECT '\n' || "x")", "q"), (Arguments{R"(SELECT '\n' || "x")"}));
}

TEST(Line, AnUnknownEscapeStandsForItself) {
    EXPECT_EQ(unescaped(R"(C:\Program\)"), R"(C:\Program\)");
}

TEST(Line, TextsLoseOuterBlanksUnlessQuoted) {
    EXPECT_EQ(split("  a b  ", "t"), (Arguments{"a b"}));
    EXPECT_EQ(split(R"(  " a b "  )", "t"), (Arguments{" a b "}));
    EXPECT_EQ(split(R"("")", "t"), (Arguments{""}));
}

TEST(Line, ATextThatOnlyBeginsWithAQuoteIsNotQuoted) {
    EXPECT_EQ(split(R"("a" or "b")", "t"), (Arguments{R"("a" or "b")"}));
}

TEST(Line, PlacesStandWhereAPathBegins) {
    EXPECT_EQ(split("%/data @/x", "ww"), (Arguments{"/inst/data", "/scratch/x"}));
    EXPECT_EQ(split("SET a = '%/documents', b = 5", "q"), (Arguments{"SET a = '/inst/documents', b = 5"}));
    EXPECT_EQ(split("Data Source=%/data/maindb.accdb;", "t"), (Arguments{"Data Source=/inst/data/maindb.accdb;"}));
    EXPECT_EQ(withPlaces("100%/2 a@/b %x %", places), "100%/2 a@/b %x %");
    EXPECT_EQ(split("started \"%/prgbin/x y\"", "l"), (Arguments{"started \"/inst/prgbin/x y\""}));
}

TEST(Line, LinesStandAsTheyWereWritten) {
    EXPECT_EQ(split(R"( message "a\rb" [はい] )", "l"), (Arguments{R"(message "a\rb" [はい])"}));
}

TEST(Line, MissingAndSurplusArgumentsAreErrors) {
    EXPECT_THROW(split("a", "ww"), ScenarioError);
    EXPECT_THROW(split("", "t"), ScenarioError);
    EXPECT_THROW(split("a b", "w"), ScenarioError);
    EXPECT_THROW(split("\"a", "w"), ScenarioError);
    EXPECT_THROW(split("\"a\"b", "w"), ScenarioError);
}

TEST(Line, OptionalArgumentsMayBeAbsent) {
    EXPECT_EQ(split("", "o"), Arguments{});
    EXPECT_EQ(split("", "T"), Arguments{});
    EXPECT_EQ(split("f 3", "woo"), (Arguments{"f", "3"}));
    EXPECT_EQ(split("f 3 \"4 5\"", "wm"), (Arguments{"f", "3", "4 5"}));
}

TEST(Line, NamesOfSeveralWordsAreCutOffWhole) {
    std::string_view rest = " file   make x";
    EXPECT_TRUE(cutName(rest, "file make"));
    EXPECT_EQ(rest, "x");
    rest = "file makes";
    EXPECT_FALSE(cutName(rest, "file make"));
    EXPECT_EQ(rest, "file makes");
}

TEST(Line, PinsAreWrittenInTheirStoredForm) {
    const std::string sql = restSql("x = '{pin 1234}'", places);
    EXPECT_EQ(sql.find("{pin"), std::string::npos);
    EXPECT_EQ(sql.find("1234"), std::string::npos);
    EXPECT_TRUE(sql.starts_with("x = '"));
}

} // namespace
