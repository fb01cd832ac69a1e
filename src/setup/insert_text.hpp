// An INSERT of the suite's programs, taken apart into its columns and values.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

struct InsertValue {
    std::string column;
    std::string value;              // what the literal means; a bare value as it stands
    std::size_t begin = 0, end = 0; // where it stands in the statement, in bytes
};

struct InsertText {
    std::string statement;
    std::string table;
    std::vector<InsertValue> values;

    bool has(std::string_view column) const;
    std::string value(std::string_view column) const; // empty for a column that isn't named
};

// Reads one whole statement "INSERT INTO TABLE (COLUMN,…) VALUES (VALUE,…)", names bare or in brackets, values 'text'
// or bare. Nothing when the text is anything else, or when there are not as many values as columns.
std::optional<InsertText> readInsert(std::string_view statement);

// Programs of the suite put some values into a statement as they were typed, and an apostrophe in one of them breaks
// it. This reads such a statement by what stands between two values, "','", and gives it with every apostrophe doubled.
// Nothing when the number of values leaves in doubt where each one ends.
std::optional<InsertText> readBrokenInsert(std::string_view statement);

// The statement with another value for one column that it names; all else to the letter.
std::string statementWith(const InsertText& insert, std::string_view column, std::string_view value);

std::string quotedText(std::string_view value); // 'value', its apostrophes doubled

} // namespace kestrel::setup
