#include "text/dates.hpp"

#include "text/characters.hpp"
#include "text/numbers.hpp"

#include <algorithm>

namespace kestrel::text {

namespace {

constexpr long long daysInFourCenturies = 146097;

long long floorDivide(long long number, long long by) {
    const long long quotient = number / by;
    return number % by < 0 ? quotient - 1 : quotient;
}

// Days are counted from 1 March of year 0: with the leap day at the end of its year, every month before it has one
// length.
long long daysBeforeMarch(long long year) {
    return 365 * year + floorDivide(year, 4) - floorDivide(year, 100) + floorDivide(year, 400);
}

// First day of a month in the same count; month 0 is March. The lengths 31, 30, 31, 30, 31 repeat: 153 days in five
// months.
long long daysBeforeMonth(int monthFromMarch) {
    return (153 * monthFromMarch + 2) / 5;
}

long long dayNumber(long long year, int month, long long day) {
    const int fromMarch = (month + 9) % 12;
    const long long marchYear = month <= 2 ? year - 1 : year;
    return daysBeforeMarch(marchYear) + daysBeforeMonth(fromMarch) + day - 1;
}

Date dateFromDayNumber(long long number) {
    long long marchYear = floorDivide(number * 400, daysInFourCenturies);
    while (daysBeforeMarch(marchYear) > number) --marchYear;
    while (daysBeforeMarch(marchYear + 1) <= number) ++marchYear;
    const int dayOfYear = static_cast<int>(number - daysBeforeMarch(marchYear));
    const int fromMarch = (5 * dayOfYear + 2) / 153;
    const int month = (fromMarch + 2) % 12 + 1;
    return {month <= 2 ? marchYear + 1 : marchYear, month,
            dayOfYear - static_cast<int>(daysBeforeMonth(fromMarch)) + 1};
}

int daysInMonth(long long year, int month) {
    constexpr int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && leap ? 29 : lengths[month - 1];
}

// Far beyond any date that can be written, and small enough that no sum of parts overflows.
long long bounded(long long part) {
    constexpr long long most = 1'000'000'000'000;
    return std::clamp(part, -most, most);
}

long long part(std::string_view yyyymmdd, std::size_t from, std::size_t count) {
    return wholeNumber(slice(yyyymmdd, from, count));
}

} // namespace

Date dateFromParts(long long year, long long month, long long day) {
    const long long monthsFromZero = bounded(month) - 1;
    const long long realYear = bounded(year) + floorDivide(monthsFromZero, 12);
    const int realMonth = static_cast<int>(monthsFromZero - 12 * floorDivide(monthsFromZero, 12)) + 1;
    return dateFromDayNumber(dayNumber(realYear, realMonth, bounded(day)));
}

Date dateFromText(std::string_view yyyymmdd) {
    return dateFromParts(part(yyyymmdd, 0, 4), part(yyyymmdd, 4, 2), part(yyyymmdd, 6, 2));
}

Date monthsLater(const Date& date, int months) {
    const Date month = dateFromParts(date.year, static_cast<long long>(date.month) + months, 1);
    return {month.year, month.month, std::min(date.day, daysInMonth(month.year, month.month))};
}

Date yearsLater(const Date& date, int years) {
    const long long year = date.year + years;
    return {year, date.month, std::min(date.day, daysInMonth(year, date.month))};
}

Date daysLater(const Date& date, long long days) {
    return dateFromParts(date.year, date.month, date.day + bounded(days));
}

Date lastDayOfMonth(const Date& date) {
    return {date.year, date.month, daysInMonth(date.year, date.month)};
}

std::string dateText(const Date& date) {
    if (date.year < 1 || date.year > 9999) return "";
    return zeroFilled(date.year, 4) + zeroFilled(date.month, 2) + zeroFilled(date.day, 2);
}

} // namespace kestrel::text
