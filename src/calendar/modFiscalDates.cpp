#include "calendar/modFiscalDates.hpp"

#include "text/characters.hpp"
#include "text/dates.hpp"
#include "text/numbers.hpp"

namespace kestrel {

namespace {

bool isMonthEndClose(const ClosingRule& rule) {
    if (rule.決算月 < 1 || rule.決算月 > 12) return false;
    if (rule.決算月 == 2) return rule.決算日 == 28 || rule.決算日 == 29;
    return rule.決算日 == text::lastDayOfMonth({1, rule.決算月, 1}).day;
}

long long yearOf(std::string_view date) {
    return text::wholeNumber(text::first(date, 4));
}

// As text, but for years that no text of eight digits can hold.
bool isLater(const text::Date& built, std::string_view date) {
    return built.year > 9999 || text::dateText(built) > date;
}

bool isEarlier(const text::Date& built, std::string_view date) {
    return built.year <= 9999 && text::dateText(built) < date;
}

} // namespace

std::string fiscalYearStart(std::string_view date, const ClosingRule& rule) {
    const text::Date start = isMonthEndClose(rule) ? text::dateFromParts(yearOf(date), rule.決算月 + 1, 1)
                                                   : text::dateFromParts(yearOf(date), rule.決算月, rule.決算日 + 1);
    return text::dateText(isLater(start, date) ? text::yearsLater(start, -1) : start);
}

std::string fiscalYearEnd(std::string_view date, const ClosingRule& rule) {
    const text::Date end = isMonthEndClose(rule) ? text::dateFromParts(yearOf(date), rule.決算月 + 1, 0)
                                                 : text::dateFromParts(yearOf(date), rule.決算月, rule.決算日);
    // A year forward keeps month and day: 28 February stays the 28th in a leap year.
    return text::dateText(isEarlier(end, date) ? text::yearsLater(end, 1) : end);
}

std::string closingMonthEnd(std::string_view date, const ClosingRule& rule) {
    const long long month = text::wholeNumber(text::slice(date, 4, 2));
    const long long day = text::wholeNumber(text::slice(date, 6, 2));
    if (isMonthEndClose(rule)) return text::dateText(text::dateFromParts(yearOf(date), month + 1, 0));
    return text::dateText(text::dateFromParts(yearOf(date), rule.決算日 >= day ? month : month + 1, rule.決算日));
}

} // namespace kestrel
