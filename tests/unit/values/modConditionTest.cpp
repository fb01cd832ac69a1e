#include "values/modCondition.hpp"

#include "../text/randomText.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <span>

namespace kestrel {
namespace {

struct Row {
    const char *name, *column, *condition, *value, *rest;
};

void expectAll(std::span<const Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        std::string condition = row.condition;
        EXPECT_EQ(takeConditionValue(row.column, condition), row.value);
        EXPECT_EQ(condition, row.rest);
    }
}

TEST(Condition, WhereTheConditionStands) {
    const Row rows[] = {
        {"a column without any condition", "M.b", "M.a = '1'", "", "M.a = '1'"},
        {"an empty text", "M.b", "", "", ""},
        {"first in the text, AND goes with it", "M.a", "M.a = '1' AND M.b = '2'", "1", "M.b = '2'"},
        {"first in the text, OR goes with it", "M.a", "M.a >= '1' OR M.b = '2'", "1", "M.b = '2'"},
        {"first and alone", "M.a", "M.a = '1'", "1", ""},
        {"last, the AND before goes with it", "M.b", "M.aa = '1' AND M.b = '2'", "2", "M.aa = '1'"},
        {"last, the OR before goes with it", "M.b", "M.aa = '1' OR M.b = '2'", "2", "M.aa = '1'"},
        {"in the middle", "M.b", "M.a = '1' AND M.b >= '2' AND M.c = '3'", "2", "M.a = '1' AND M.c = '3'"},
        {"lower bound behind WHERE", "M.a", " WHERE M.a >= '1' AND M.b = '2'", "1", " WHERE M.b = '2'"},
        {"upper bound behind WHERE", "M.a", " WHERE M.a <= '1' OR M.b = '2'", "1", " WHERE M.b = '2'"},
        {"equality behind WHERE takes WHERE along", "M.a", " WHERE M.a = '1' AND M.b = '2'", "1", "M.b = '2'"},
        {"equality behind WHERE with OR behind it", "M.a", " WHERE M.a = '1' OR M.b = '2'", "1",
         " WHERE M.a = '1'M.b = '2'"},
    };
    expectAll(rows);
}

// Too little stands in front for a connective to be looked for there: the search may find one behind the condition, and
// then the condition stays. The list windows never hand down such texts; the rule is kept to the letter all the same.
TEST(Condition, ShortTextsInFront) {
    const Row rows[] = {
        {"one character in front", "M.a", "(M.a = '1' AND M.b = '2')", "1", " AND M.b = '2')"},
        {"AND alone in front", "M.a", " AND M.a = '1'", "1", ""},
        {"OR alone in front", "M.a", " OR M.a = '1' AND M.b = '2'", "1", " AND M.b = '2'"},
        {"AND and a parenthesis in front", "M.a", " AND (M.a = '1' OR M.a = '2')", "1",
         " AND (M.a = '1' OR M.a = '2')"},
    };
    expectAll(rows);
}

TEST(Condition, Operators) {
    const Row rows[] = {
        {"greater takes everything in front", "M.b", "M.aa = '1' AND M.b > '2' AND M.c = '3'", "2", " AND M.c = '3'"},
        {"less takes everything in front", "M.b", "M.aa = '1' AND M.b < '2'", "2", ""},
        {"LIKE loses its percent signs and takes everything in front", "M.b",
         "M.aa = '1' AND M.b LIKE '%山%' AND M.c = '3'", "山", " AND M.c = '3'"},
        {"a percent sign in an equality stays", "M.b", "M.b = '%2'", "%2", ""},
        {"the first operator of the table wins, not the first in the text", "M.a", "M.a = '1' AND M.a >= '2'", "2",
         "M.a = '1'"},
        {"letter case is ignored", "m.A", "M.a = '1' and M.b = '2'", "1", "M.b = '2'"},
        {"letter case of full-width Latin is ignored", "Ｍ.ａ", "ｍ.Ａ = '1'", "1", ""},
        {"kana are not letters with a case", "M.ァ", "M.ア = '1'", "", "M.ア = '1'"},
    };
    expectAll(rows);
}

TEST(Condition, Groups) {
    const Row rows[] = {
        {"a group behind AND goes as a whole", "M.b", "M.aa = '1' AND (M.b = '2' OR M.b = '3') AND M.c = '4'", "2",
         "M.aa = '1' AND M.c = '4'"},
        {"a group behind OR goes as a whole", "M.b", "M.aa = '1' OR (M.b = '2' OR M.c = '3')", "2", "M.aa = '1'"},
        {"a group before the condition stays", "M.c", "(M.a = '1' OR M.b = '2') AND M.c >= '3'", "3",
         "(M.a = '1' OR M.b = '2')"},
        {"a group behind the condition stays", "M.b", "M.aa = '1' AND M.b = '2' AND (M.c = '3')", "2",
         "M.aa = '1' AND (M.c = '3')"},
    };
    expectAll(rows);
}

TEST(Condition, Values) {
    const Row rows[] = {
        {"the value ends at the first apostrophe", "M.a", "M.a = 'O''Neil'", "O", "'Neil'"},
        {"an empty value", "M.a", "M.a = '' AND M.b = '2'", "", "M.b = '2'"},
        {"a missing closing apostrophe leaves the text", "M.a", "M.a = '1", "", "M.a = '1"},
        {"a longer name ending the same way: the first match wins", "コード", "M.部門コード = '1' AND M.コード = '2'",
         "1", " AND M.コード = '2'"},
        {"Japanese in front counts in characters", "M担当者.コード", "M部門名 = '営業' AND M担当者.コード = '00001'",
         "00001", "M部門名 = '営業'"},
    };
    expectAll(rows);
}

TEST(Condition, BothBoundsComeOneAfterTheOther) {
    std::string condition = "M.日付 >= '20240401' AND M.日付 <= '20240430'";
    EXPECT_EQ(takeConditionValue("M.日付", condition), "20240401");
    EXPECT_EQ(condition, "M.日付 <= '20240430'");
    EXPECT_EQ(takeConditionValue("M.日付", condition), "20240430");
    EXPECT_EQ(condition, "");
}

TEST(Condition, TheRosterListsCondition) {
    std::string condition =
        "T名簿.番号基準日付 = '20250331' AND T名簿.名簿日付 >= '20240401' AND T名簿.担当者コード = '00001'";
    EXPECT_EQ(takeConditionValue("T名簿.名簿日付", condition), "20240401");
    EXPECT_EQ(condition, "T名簿.番号基準日付 = '20250331' AND T名簿.担当者コード = '00001'");
    EXPECT_EQ(takeConditionValue("T名簿.担当者コード", condition), "00001");
    EXPECT_EQ(condition, "T名簿.番号基準日付 = '20250331'");
}

// Nothing but a beginning and an end of the old text makes up the new one.
bool isBeginningAndEnd(const std::string& rest, const std::string& before) {
    const auto head = std::mismatch(rest.begin(), rest.end(), before.begin(), before.end()).first - rest.begin();
    const auto tail = std::mismatch(rest.rbegin(), rest.rend(), before.rbegin(), before.rend()).first - rest.rbegin();
    return head + tail >= std::ssize(rest);
}

TEST(Condition, EveryTextHasAnAnswer) {
    const std::vector<std::string> pieces = {"a",    " WHERE ", " AND ",   " OR ",    "(", ")",  "'",
                                             " = '", " >= '",   " LIKE '", "a = '1'", "%", "山", "\xE3"};
    std::mt19937 random(8);
    for (int i = 0; i < 20000; ++i) {
        const std::string before = test::randomText(random, pieces);
        std::string condition = before;
        const std::string value = takeConditionValue("a", condition);
        EXPECT_TRUE(isBeginningAndEnd(condition, before)) << before;
        EXPECT_EQ(value.find('\''), value.npos) << before;
    }
}

} // namespace
} // namespace kestrel
