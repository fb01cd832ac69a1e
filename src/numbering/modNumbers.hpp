// The registers from which every family of records draws its numbers. A register tells how its counter is scoped in
// time; the company tells whether it keeps one set of counters or one for each office (the office counts only then).
// Base dates are "yyyymmdd", "99999999" without a scope, "88888888" for a counter type that isn't one. A failed
// statement counts as no row.
#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// The base date of a number for a date "yyyymmdd" ("99999999": today). Empty when there is no such register.
std::string numberBaseDate(std::string_view id, std::string_view date);

// The next number, at least eight digits: peek leaves it there, take writes it back. Both make the counter's row when
// it isn't there yet. "00000000", and one message shown twice, when there is no such register; empty when the type is
// invalid or the counter can't be read.
//
// Two instances never take one number where the engine can lock: the reading and the writing of a take are one draw.
std::string peekNextNumber(std::string_view id, std::string_view baseDate, std::string_view office);
std::string takeNextNumber(std::string_view id, std::string_view baseDate, std::string_view office);

} // namespace kestrel
