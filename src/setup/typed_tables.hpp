// The tables whose rows people type, and when two rows are the same typed row. Not here: what the programs make by
// themselves out of such rows (the telephone directory, numbers, views), and attachments, whose document is only copied
// behind a successful insert, so that a row put back alone would promise what isn't there.
#pragma once

#include "setup/insert_text.hpp"
#include "setup/rows.hpp"

#include <span>
#include <string>
#include <string_view>

namespace kestrel::setup {

using ColumnNames = std::span<const std::string_view>;

struct TypedTable {
    std::string_view name;
    ColumnNames scope;       // the number counts within these
    std::string_view number; // with the scope: the key
    ColumnNames names;       // the words a person knows the row by
    ColumnNames content;     // what else a person gave it
    // Digits of a number that another row may take the place of; 0: a row whose number is taken stays out, because
    // other rows know it by that number, or because a second master row of one partner does more harm than a missing
    // one.
    int width;
};

const TypedTable* typedTableNamed(std::string_view name); // nothing for any other table

bool namesKey(const TypedTable& table, const InsertText& insert); // every column of the key stands in the statement
// One typed row in two statements: all that a person gave it is the same, whatever its number; or it has the same
// number and the same names, and the later one is the row as it was typed last.
bool sameTypedRow(const TypedTable& table, const InsertText& one, const InsertText& other);
// The columns that the statement names have the same content in the row; a null is an empty text.
bool holdsContent(const TypedTable& table, const Row& row, const InsertText& insert);
bool holdsNames(const TypedTable& table, const Row& row, const InsertText& insert);

std::string keyText(const TypedTable& table, const InsertText& insert);  // scope and number, blanks between
std::string nameText(const TypedTable& table, const InsertText& insert); // the names, blanks between, on one line

} // namespace kestrel::setup
