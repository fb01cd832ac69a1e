// The order of a list's rows by what one column shows.
#pragma once

#include "screen/control.hpp"

namespace kestrel::screen {

// The list is sorted from now on by that column (0 is the row's text), by code points; equal rows keep their order, the
// selected row stays selected.
void sortBy(Control& list, int column, SortOrder order);

void sortRows(Control& list); // brings rows that were added since into the order of a sorted list; else nothing

} // namespace kestrel::screen
