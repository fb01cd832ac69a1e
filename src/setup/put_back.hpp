// Where a lost row stands against its table, and putting it back.
#pragma once

#include "setup/lost_rows.hpp"
#include "setup/store.hpp"

#include <string>

namespace kestrel::setup {

enum class Spot {
    there,   // the row is in the table after all
    free,    // its number is free
    taken,   // another row has its number; next is free
    noOther, // another row has its number, and a row of this table takes no other
};

struct Standing {
    Spot spot = Spot::free;
    std::string next; // with taken
};

// Fails where the table can't be read.
Result<Standing> standingOf(Connection& main, const LostRow& row);

// Puts a row back that can be read: its own INSERT, under its number or, where that is taken, the next free one; should
// another program take that one at the same moment, the one behind it. Answers where it stood; the number it got is
// that of the row, or next. Nothing is written for a row that is there or takes no other number.
Result<Standing> putBack(Connection& main, const LostRow& row);

// Writes into the run history that the row was put back, as the program writes that a row was saved: later runs then
// know that it arrived, whatever becomes of it.
Status tellHistory(const LostRow& row, const Standing& standing);

} // namespace kestrel::setup
