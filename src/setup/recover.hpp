// What was typed and isn't in its table: rows whose INSERT failed, and rows of changes that were cut off between their
// DELETE and their INSERT.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

struct Recovery {
    std::vector<std::string> lines;    // for a person, in English with the names as they stand
    std::vector<std::string> troubles; // what could not be read or written, one line each
    bool left = false;                 // something waits that was not put back
};

// Lists, or with apply puts back, the rows of T名簿, T名簿明細 and the four partner tables that the run histories and
// the notes of the installation in folder tell of. A row counts as arrived, and is passed over, when it stands in its
// table under any number with all that a person typed into it; and when a run history tells of a later save of that
// row, or of the same number with the same names: what became of it since was somebody's will. Several failures of one
// row count once, by the last.
//
// Put back is the row's own INSERT, under its number or, for an addressee whose number another one has, the next free
// one. Left to a person are rows that no INSERT can be read for, and rosters and partners whose number is taken. A
// change that a living program is in the middle of is passed over with a word. With apply, nothing is put back while
// one of the local databases can't be read, because what was saved since isn't known then, nor while somebody else is
// at it.
Recovery recover(std::string_view folder, bool apply);

} // namespace kestrel::setup
