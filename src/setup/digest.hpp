// What a table holds, in a few numbers, so that two copies of it can be compared.
#pragma once

#include "setup/store.hpp"
#include "setup/tables.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

// Does not depend on the order of the rows, so each engine may read them in the order that is cheapest for it. It
// is made to find accidents, not forgeries.
struct Digest {
    std::uint64_t rows = 0;
    std::uint64_t first = 0, second = 0;

    friend bool operator==(const Digest&, const Digest&) = default;
};

// How a value counts: texts sign by sign; a null is not an empty text, except on a server that knows no empty text.
struct Counting {
    std::vector<bool> numbers; // for each column: a number, however it is written ("1", "1.0", "1e0")
    bool emptyIsNull = false;
};
Counting countingFor(const Table& table, const std::vector<std::string>& columns, bool emptyIsNull);

void addRow(Digest& digest, const Counting& counting, const std::vector<std::optional<std::string_view>>& values);

// One way to write a decimal number: no zero in front or behind that says nothing, an exponent. A text that is no
// number is answered as it stands.
std::string plainNumber(std::string_view text);

} // namespace kestrel::setup
