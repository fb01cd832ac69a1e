#include "calendar/modFiscalDates.hpp"

#include "../text/randomText.hpp"

#include <gtest/gtest.h>

#include <span>

namespace kestrel {
namespace {

using Operation = std::string (*)(std::string_view, const ClosingRule&);

struct Row {
    const char* name;
    ClosingRule rule;
    const char *date, *expected;
};

void expectAll(Operation operation, std::span<const Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(operation(row.date, row.rule), row.expected);
    }
}

TEST(FiscalDates, FiscalYearStart) {
    const Row rows[] = {
        {"close at 31 December, first day", {12, 31}, "20240101", "20240101"},
        {"close at 31 December, last day", {12, 31}, "20241231", "20240101"},
        {"close at 31 December, last year", {12, 31}, "99991231", "99990101"},
        {"close at 31 March, its day", {3, 31}, "20240331", "20230401"},
        {"close at 31 March, the day after", {3, 31}, "20240401", "20240401"},
        {"close at 20 March, its day", {3, 20}, "20240320", "20230321"},
        {"close at 20 March, the day after", {3, 20}, "20240321", "20240321"},
        {"close at 28 February starts with March", {2, 28}, "20240229", "20230301"},
        {"close at 30 April is a month-end close", {4, 30}, "20240430", "20230501"},
        {"close at 30 March is none", {3, 30}, "20240330", "20230331"},
        {"no closing month or day", {0, 0}, "20240515", "20231201"},
        {"empty date", {3, 31}, "", ""},
    };
    expectAll(fiscalYearStart, rows);
}

TEST(FiscalDates, FiscalYearEnd) {
    const Row rows[] = {
        {"close at 31 December", {12, 31}, "20240101", "20241231"},
        {"close at 31 December, its day", {12, 31}, "20241231", "20241231"},
        {"close at 31 March", {3, 31}, "20240115", "20240331"},
        {"close at 20 March, the day after", {3, 20}, "20240321", "20250320"},
        {"close at 20 March, its day", {3, 20}, "20240320", "20240320"},
        {"close at 28 February, forward into a leap year", {2, 28}, "20230301", "20240228"},
        {"close at 28 February, in January of a leap year", {2, 28}, "20240110", "20240229"},
        {"close at 29 February, forward into a leap year", {2, 29}, "20230301", "20240228"},
        {"close at 29 February, in January of a leap year", {2, 29}, "20240110", "20240229"},
        {"close at 29 February, forward from a leap year", {2, 29}, "20240301", "20250228"},
        {"beyond the last year", {3, 31}, "99990401", ""},
    };
    expectAll(fiscalYearEnd, rows);
}

TEST(FiscalDates, ClosingMonthEnd) {
    const Row rows[] = {
        {"month-end close on 31 January", {3, 31}, "20240131", "20240131"},
        {"month-end close on 1 February", {3, 31}, "20240201", "20240229"},
        {"close at 20 March, 10 May", {3, 20}, "20240510", "20240520"},
        {"close at 20 March, 20 May", {3, 20}, "20240520", "20240520"},
        {"close at 20 March, 21 May", {3, 20}, "20240521", "20240620"},
        {"close at 20 March, 25 December", {3, 20}, "20241225", "20250120"},
        {"day 30 of February runs into March", {3, 30}, "20240210", "20240301"},
        {"month-end close in February", {2, 28}, "20240415", "20240430"},
    };
    expectAll(closingMonthEnd, rows);
}

TEST(FiscalDates, TheCompanysPairIsTheRuleUnlessAnotherIsGiven) {
    company.決算月 = 3;
    company.決算日 = 20;
    EXPECT_EQ(fiscalYearEnd("20240321"), "20250320");
    EXPECT_EQ(fiscalYearStart("20240321"), "20240321");
    EXPECT_EQ(closingMonthEnd("20240321"), "20240420");
    company.決算月 = company.決算日 = 0;
}

TEST(FiscalDates, AnyTextAndAnyPairGivesADateOrNothing) {
    std::mt19937 random(4);
    for (int i = 0; i < 3000; ++i) {
        const std::string date = test::randomText(random, test::oddPieces, 9);
        const ClosingRule rule{int(random() % 65536) - 32768, int(random() % 65536) - 32768};
        for (const Operation operation : {fiscalYearStart, fiscalYearEnd, closingMonthEnd}) {
            const std::string result = operation(date, rule);
            EXPECT_TRUE(result.empty() || result.size() == 8) << date << " gives " << result;
        }
    }
}

} // namespace
} // namespace kestrel
