#include "setup/demonstration.hpp"

namespace kestrel::setup {

namespace {

std::vector<std::string> staffOf(const Rows& rows, std::string_view office) {
    std::vector<std::string> codes;
    for (const Row& row : rows) {
        if (row.table == "M担当者" && row.get("事業所コード") == office) codes.push_back(*row.get("コード"));
    }
    return codes;
}

} // namespace

void addDemonstration(Rows& rows, const Place& place) {
    for (const Row& row : rowsOf("demonstration", place)) layOver(rows, row);
    addPostalCodes(rows);
    const Staff staff{staffOf(rows, "001"), staffOf(rows, "002"), staffOf(rows, "003")};
    addPartners(rows, staff, place);
    addRosters(rows, staff, place);
}

void addPostalCodes(Rows& rows) {
    for (const Town& town : towns()) {
        rows.push_back(
            {"M郵便番号", {{"郵便番号", town.postalCode}, {"住所A", town.municipality}, {"住所B", town.name}}});
    }
}

// Of ten customers six belong to the first office, three to the second, one to the third.
Holder holderOf(const Staff& staff, std::size_t customer) {
    static constexpr std::size_t share[] = {0, 0, 1, 0, 0, 1, 0, 2, 1, 0};
    const std::size_t at = share[customer % std::size(share)];
    const auto& members = staff[at];
    return {padded(at + 1, 3), members[customer / std::size(share) % members.size()], areaCodes[at]};
}

std::string stamp(const Place& place, long long daysAgo, std::size_t spread) {
    const std::size_t minutes = 9 * 60 + spread * 37 % (8 * 60);
    return dayFrom(place.day, -daysAgo) + " " + padded(minutes / 60, 2) + padded(minutes % 60, 2) +
           padded(spread % 60, 2);
}

} // namespace kestrel::setup
