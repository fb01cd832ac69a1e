#include "platform/database/record_set.hpp"

#include "platform/database/names.hpp"

namespace kestrel::database {

namespace {

int indexOf(const SqliteRows& rows, std::string_view column) {
    int count = rows.columnCount();
    for (int i = 0; i < count; ++i)
        if (sameName(rows.columnName(i), column)) return i;
    throw DatabaseError("there is no column " + std::string(column));
}

const SqliteRows& readable(const SqliteRows* rows, std::string_view column) {
    if (!rows || rows->atEnd()) throw DatabaseError("there is no row to read " + std::string(column) + " from");
    return *rows;
}

std::optional<std::string_view> valueOf(const SqliteRows* rows, std::string_view column) {
    const SqliteRows& present = readable(rows, column);
    return present.value(indexOf(present, column));
}

} // namespace

RecordSet::RecordSet(SqliteRows content) : rows(std::move(content)) {}

bool RecordSet::bof() const {
    auto sqlite = std::get_if<SqliteRows>(&rows);
    return !sqlite || sqlite->none();
}

bool RecordSet::eof() const {
    auto sqlite = std::get_if<SqliteRows>(&rows);
    return !sqlite || sqlite->atEnd();
}

void RecordSet::moveNext() {
    auto sqlite = std::get_if<SqliteRows>(&rows);
    if (!sqlite) return;
    if (auto moved = sqlite->next(); !moved) throw DatabaseError(moved.failure().description);
}

void RecordSet::close() {
    rows = std::monostate{};
}

std::string RecordSet::text(std::string_view column) const {
    auto value = valueOf(std::get_if<SqliteRows>(&rows), column);
    if (!value) throw DatabaseError("the column " + std::string(column) + " is null");
    return std::string(*value);
}

std::string RecordSet::text(std::string_view column, std::string_view whenNull) const {
    return std::string(valueOf(std::get_if<SqliteRows>(&rows), column).value_or(whenNull));
}

std::optional<std::string> RecordSet::textOrNull(std::string_view column) const {
    auto value = valueOf(std::get_if<SqliteRows>(&rows), column);
    return value ? std::optional<std::string>(*value) : std::nullopt;
}

int RecordSet::columnIndex(std::string_view column) const {
    return indexOf(readable(std::get_if<SqliteRows>(&rows), column), column);
}

std::optional<std::string_view> RecordSet::view(int index) const {
    auto sqlite = std::get_if<SqliteRows>(&rows);
    if (!sqlite || sqlite->atEnd()) throw DatabaseError("there is no row to read from");
    return sqlite->value(index);
}

int RecordSet::columnCount() const {
    auto sqlite = std::get_if<SqliteRows>(&rows);
    return sqlite ? sqlite->columnCount() : 0;
}

std::string RecordSet::columnName(int index) const {
    auto sqlite = std::get_if<SqliteRows>(&rows);
    return sqlite ? std::string(sqlite->columnName(index)) : std::string();
}

} // namespace kestrel::database
