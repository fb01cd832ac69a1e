// Typed rows that may be missing from their tables, as they stand in the local databases and the notes beside them.
#pragma once

#include "setup/typed_tables.hpp"

#include <string>
#include <vector>

namespace kestrel::setup {

struct LostRow {
    const TypedTable* table = nullptr;
    InsertText insert; // only the statement and the table's name where it can't be read
    bool readable = true;
    std::string when;               // "yyyymmdd hhnnss"
    std::string who;                // for a person
    std::string why;                // the engine's description; empty: nothing failed, the change was cut off
    std::string folder;             // the conf folder it was found in
    std::string counter;            // the number of its line within its run; empty: it stands in a note alone
    std::vector<std::string> notes; // files of the changes that left it
};

struct LostRows {
    std::vector<LostRow> rows;             // in order of time, one for each row
    std::vector<std::string> settledNotes; // notes of rows that were left out, and those that no DELETE ever followed
    std::vector<std::string> troubles;     // what could not be read, one line each
};

// Looks at the master local database of the installation at root and at each user's, with the notes beside them. What a
// later line of a run history tells to have been saved after all is left out. Only reads.
LostRows findLostRows(const std::string& root);

} // namespace kestrel::setup
