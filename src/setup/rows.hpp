// Rows on their way into a database: made in memory, then written as a few long INSERT statements.
#pragma once

#include "platform/database/dialect.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

using Value = std::optional<std::string>; // nothing: null

struct Row {
    std::string table;
    std::vector<std::pair<std::string, Value>> values; // a column that isn't named is null

    void set(std::string_view column, Value value);
    Value get(std::string_view column) const; // null for a column that isn't named
};

using Rows = std::vector<Row>;

// What the values of a row file may name.
struct Place {
    std::string root; // the installation's folder, no closing separator
    std::string day;  // "yyyymmdd"
};

// The rows of schema/NAME.tsv, their marks ({root}, {pin TEXT}, {day-N}) filled in.
Rows rowsOf(std::string_view name, const Place& place);
// Adds the row, or, where a row with its key is already there, lays its values over that row's.
void layOver(Rows& rows, const Row& row);
// INSERT statements, in the dialect's own words, for the rows that belong to that database ("main", "local"), in their
// order within each table.
std::vector<std::string> insertStatements(std::string_view database, const Rows& rows,
                                          database::Dialect dialect = database::Dialect::sqlite);

// The date so many days from the day, "yyyymmdd".
std::string dayFrom(std::string_view day, long long days);

} // namespace kestrel::setup
