// A company of real volumes, for what a small office would never show: made up row by row, always the same, and kept as
// one database file in the build folder, since making it takes a while.
#pragma once

#include "program.hpp"

#include <cstddef>
#include <string>

namespace kestrel::bench {

struct CompanySize {
    std::size_t customers, contacts, rosters, addressees, postalCodes; // contacts: telephone rows of the customers
};
inline constexpr CompanySize wholeCompany = {200'000, 400'000, 20'000, 1'000'000, 124'000};
inline constexpr CompanySize halfTheCustomers = {100'000, 200'000, 0, 0, 0};

// The first roster has all addressees that the others, each with the same number of them, leave.
inline constexpr const char* rosterOffice = "001";
inline constexpr const char* rosterBaseDate = "20250331";
inline constexpr const char* largeRoster = "00000001";

// The database file of a company of that size, made if it isn't there yet for the tables as they are now. Ends the
// process when it can't be made.
std::string companyFile(const CompanySize& size);

// An installation of its own whose main database is the company's.
class Company {
public:
    explicit Company(const CompanySize& size);
    const Installation& place() const { return installed; }

private:
    const std::string file; // made first: making it takes an installation too, and the last one is the program's
    const Installation installed;
};

} // namespace kestrel::bench
