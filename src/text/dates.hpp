// Date arithmetic on civil dates. Every function is total: parts out of range roll, no text makes them throw.
#pragma once

#include <string>
#include <string_view>

namespace kestrel::text {

struct Date {
    long long year = 0;
    int month = 1, day = 1;
    friend bool operator==(const Date&, const Date&) = default;
};

Date dateFromParts(long long year, long long month, long long day); // rolls, as date arithmetic does
Date dateFromText(std::string_view yyyymmdd);                       // missing or odd parts count as 0 and roll
Date yearsLater(const Date& date, int years);                       // clamps to the month's end
Date monthsLater(const Date& date, int months);                     // clamps to the month's end
Date daysLater(const Date& date, long long days);
Date lastDayOfMonth(const Date& date);
std::string dateText(const Date& date); // "yyyymmdd"; the empty text for a year outside 1 to 9999

} // namespace kestrel::text
