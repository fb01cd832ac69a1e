// The demonstration data: what a newcomer finds on top of the minimal rows, as a small office would have it.
#pragma once

#include "setup/parties.hpp"
#include "setup/rows.hpp"

#include <array>

namespace kestrel::setup {

// Company numbers by what the companies are. Company 0 is the prospect that the first steps show.
inline constexpr std::size_t firstCustomer = 1, customers = 1300;
inline constexpr std::size_t firstSupplier = 1301, suppliers = 150;
inline constexpr std::size_t firstMaker = 1451, makers = 110;
inline constexpr std::size_t firstProspect = 1561, prospects = 500;
inline constexpr std::size_t deliveries = 380; // each one a place of some customer

// The addressee of company 0, in the year of the installation's making.
inline constexpr const char* exampleOffice = "001";
inline constexpr const char* exampleRoster = "00000012";
inline constexpr const char* exampleAddressee = "000003";

// Everything: offices, staff, postal codes, partners, rosters.
void addDemonstration(Rows& rows, const Place& place);

void addPostalCodes(Rows& rows);
using Staff = std::array<std::vector<std::string>, 3>; // codes of the members of each of the three offices
void addPartners(Rows& rows, const Staff& staff, const Place& place);
void addRosters(Rows& rows, const Staff& staff, const Place& place);

struct Holder {
    std::string office, staff;
    std::string areaCode; // where the office has its customers
};
// The office and the member of staff that a customer belongs to; always the same for the number.
Holder holderOf(const Staff& staff, std::size_t customer);
std::string stamp(const Place& place, long long daysAgo, std::size_t spread); // "yyyymmdd hhnnss", within office hours

} // namespace kestrel::setup
