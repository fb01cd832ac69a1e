// The company's fiscal year and monthly closing around a date. Dates are "yyyymmdd" on both sides and compare as text.
// Total: missing or odd parts of a date count as 0 and roll, and a result outside the years 1 to 9999 is the empty
// text.
#pragma once

#include "session/companyValues.hpp"

#include <string>
#include <string_view>

namespace kestrel {

// The day on which the accounts close. When it is the last day of its month (28 or 29 for February), every closing lies
// on the last day of a month; else on that day number.
struct ClosingRule {
    int 決算月 = 0, 決算日 = 0;
};

inline ClosingRule companyClosing() {
    return {company.決算月, company.決算日};
}

std::string fiscalYearStart(std::string_view date, const ClosingRule& rule = companyClosing()); // first day
std::string fiscalYearEnd(std::string_view date, const ClosingRule& rule = companyClosing());   // last day
std::string closingMonthEnd(std::string_view date,
                            const ClosingRule& rule = companyClosing()); // closing on or after it

} // namespace kestrel
