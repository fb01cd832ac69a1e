// From a row to a record: which column goes to which member, as a table. A null column leaves its member as it was; a
// column that isn't there raises.
#pragma once

#include "platform/database/record_set.hpp"
#include "text/numbers.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace kestrel {

template <class Record> struct Column {
    std::string_view name;
    std::variant<std::string Record::*, std::int16_t Record::*> member; // a number is the leading one, within 16 bits
};

inline void takeColumn(const database::RecordSet& row, std::string_view column, std::string& value) {
    value = row.text(column, value);
}

inline void takeColumn(const database::RecordSet& row, std::string_view column, std::int16_t& value) {
    if (const auto text = row.textOrNull(column)) value = text::leadingShort(*text);
}

template <class Record, class Table>
void takeColumns(const database::RecordSet& row, const Table& table, Record& record) {
    for (const Column<Record>& column : table)
        std::visit([&](auto member) { takeColumn(row, column.name, record.*member); }, column.member);
}

} // namespace kestrel
