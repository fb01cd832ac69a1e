#include "text/dates.hpp"

#include "randomText.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>

namespace kestrel::text {
namespace {

TEST(Dates, PartsOutOfRangeRoll) {
    struct Row {
        const char* name;
        long long year, month, day;
        const char* text;
    };
    const Row rows[] = {
        {"an ordinary date", 2024, 5, 15, "20240515"},
        {"month 13", 2023, 13, 5, "20240105"},
        {"month 0", 2024, 0, 5, "20231205"},
        {"month -12", 2024, -12, 5, "20221205"},
        {"day 0", 2024, 3, 0, "20240229"},
        {"day 30 of February", 2023, 2, 30, "20230302"},
        {"day 366", 2024, 1, 366, "20241231"},
        {"day -365", 2024, 1, -365, "20221231"},
        {"a century without a leap day", 1900, 2, 29, "19000301"},
        {"a century with one", 2000, 2, 29, "20000229"},
        {"first year", 1, 1, 1, "00010101"},
        {"year 0", 1, 1, 0, ""},
        {"last day", 9999, 12, 31, "99991231"},
        {"year 10000", 9999, 12, 32, ""},
        {"nothing", 0, 0, 0, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(dateText(dateFromParts(row.year, row.month, row.day)), row.text);
    }
}

TEST(Dates, EveryDayOfFourCenturiesFollowsTheCalendar) {
    using namespace std::chrono;
    for (sys_days day = sys_days(year(1800) / 1 / 1); day < sys_days(year(2201) / 1 / 1); day += days(1)) {
        const year_month_day expected(day);
        const Date date = dateFromParts(1800, 1, (day - sys_days(year(1800) / 1 / 1)).count() + 1);
        ASSERT_EQ(date, (Date{int(expected.year()), int(unsigned(expected.month())), int(unsigned(expected.day()))}));
    }
}

TEST(Dates, TextsGiveTheirPartsAndOddPartsCountAsZero) {
    EXPECT_EQ(dateFromText("20240515"), (Date{2024, 5, 15}));
    EXPECT_EQ(dateText(dateFromText("20240230")), "20240301");
    EXPECT_EQ(dateText(dateFromText("2024")), "20231130");
    EXPECT_EQ(dateText(dateFromText("2024AB15")), "20231215");
    EXPECT_EQ(dateText(dateFromText("")), "");
}

TEST(Dates, StepsOfYearsAndMonthsClampToTheMonthsEnd) {
    EXPECT_EQ(dateText(yearsLater({2024, 2, 29}, 1)), "20250228");
    EXPECT_EQ(dateText(yearsLater({2024, 2, 29}, -4)), "20200229");
    EXPECT_EQ(dateText(yearsLater({2023, 2, 28}, 1)), "20240228");
    EXPECT_EQ(dateText(monthsLater({2024, 1, 31}, 1)), "20240229");
    EXPECT_EQ(dateText(monthsLater({2024, 3, 31}, -1)), "20240229");
    EXPECT_EQ(dateText(monthsLater({2024, 1, 31}, -2)), "20231130");
    EXPECT_EQ(dateText(monthsLater({2024, 5, 15}, 24)), "20260515");
    EXPECT_EQ(dateText(daysLater({2024, 2, 28}, 2)), "20240301");
    EXPECT_EQ(dateText(daysLater({2024, 3, 1}, -1)), "20240229");
    EXPECT_EQ(dateText(lastDayOfMonth({2023, 2, 3})), "20230228");
}

TEST(Dates, NoTextAndNoNumberMakesThemThrow) {
    std::mt19937 random(3);
    constexpr long long extremes[] = {std::numeric_limits<long long>::min(), -1, 0, 29,
                                      std::numeric_limits<long long>::max()};
    for (const long long year : extremes)
        for (const long long month : extremes)
            for (const long long day : extremes) {
                const Date date = dateFromParts(year, month, day);
                EXPECT_TRUE(date.month >= 1 && date.month <= 12 && date.day >= 1 && date.day <= 31);
            }
    for (int i = 0; i < 2000; ++i) {
        const Date date = dateFromText(test::randomText(random, test::oddPieces));
        EXPECT_EQ(dateFromParts(date.year, date.month, date.day), date);
    }
}

} // namespace
} // namespace kestrel::text
