// The tables of an installation, read from their one definition.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

struct Column {
    std::string name;
    std::string type;               // text, number, integer, generated
    bool key = false;               // part of the primary key
    bool required = false;          // never null
    std::vector<std::string> parts; // of a generated column: the columns it joins
};

struct Index {
    std::string name;
    std::vector<std::string> columns;
};

struct Table {
    std::string database; // main, local
    std::string name;
    std::vector<Column> columns;
    std::vector<Index> indexes;
    std::vector<Index> searches; // columns that windows search for a part of their text
};

const std::vector<Table>& tables();
// Throws std::logic_error when no table has that name.
const Table& tableNamed(std::string_view name);
std::vector<std::string> keyColumns(const Table& table);
// The columns that statements may give a value: all but the generated ones.
std::vector<std::string> writtenColumns(const Table& table);

} // namespace kestrel::setup
