#include "setup/rows.hpp"

#include "setup/definition.hpp"
#include "setup/pin.hpp"
#include "setup/tsv.hpp"
#include "text/dates.hpp"
#include "text/numbers.hpp"

#include <algorithm>
#include <stdexcept>

namespace kestrel::setup {

namespace {

std::string markValue(std::string_view mark, const Place& place) {
    if (mark == "root") return place.root;
    if (mark.starts_with("pin ")) return storedPin(mark.substr(4));
    if (mark.starts_with("day")) return dayFrom(place.day, text::leadingNumber(mark.substr(3)));
    throw std::logic_error("unknown mark {" + std::string(mark) + "}");
}

std::string filled(std::string_view value, const Place& place) {
    const std::size_t open = value.find('{'), shut = value.find('}');
    if (open == std::string_view::npos || shut == std::string_view::npos) return std::string(value);
    return std::string(value.substr(0, open)) + markValue(value.substr(open + 1, shut - open - 1), place) +
           std::string(value.substr(shut + 1));
}

bool sameKey(const Row& one, const Row& other) {
    if (one.table != other.table) return false;
    const auto keys = keyColumns(tableNamed(one.table));
    return !keys.empty() &&
           std::ranges::all_of(keys, [&](const std::string& key) { return one.get(key) == other.get(key); });
}

std::string tuple(const Row& row, const std::vector<std::string>& columns, const Words& words) {
    std::string text;
    for (const std::string& column : columns) text += (text.empty() ? "(" : ",") + literal(row.get(column), words);
    return text + ")";
}

// A misspelt name would otherwise vanish without a word.
void refuseUnknownColumns(const Row& row, const std::vector<std::string>& columns) {
    for (const auto& [column, value] : row.values) {
        if (std::ranges::find(columns, column) == columns.end()) {
            throw std::logic_error(row.table + " has no column " + column);
        }
    }
}

void insertInto(const Table& table, const std::vector<const Row*>& rows, const Words& words,
                std::vector<std::string>& statements) {
    const auto columns = writtenColumns(table);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        refuseUnknownColumns(*rows[i], columns);
        if (i % words.rowsOfOneInsert == 0) {
            statements.push_back(insertHead(table, words));
        } else {
            statements.back() += ",";
        }
        statements.back() += tuple(*rows[i], columns, words);
    }
}

} // namespace

void Row::set(std::string_view column, Value value) {
    const auto found = std::ranges::find(values, column, &std::pair<std::string, Value>::first);
    if (found != values.end()) {
        found->second = std::move(value);
    } else {
        values.emplace_back(column, std::move(value));
    }
}

Value Row::get(std::string_view column) const {
    const auto found = std::ranges::find(values, column, &std::pair<std::string, Value>::first);
    return found == values.end() ? std::nullopt : found->second;
}

Rows rowsOf(std::string_view name, const Place& place) {
    Rows rows;
    for (const auto& line : fieldsOf(name)) {
        Row row{std::string(line[0]), {}};
        for (std::size_t i = 1; i < line.size(); ++i) {
            const std::size_t sign = line[i].find('=');
            row.set(line[i].substr(0, sign), filled(line[i].substr(sign + 1), place));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

void layOver(Rows& rows, const Row& row) {
    const auto found = std::ranges::find_if(rows, [&](const Row& other) { return sameKey(row, other); });
    if (found == rows.end()) {
        rows.push_back(row);
        return;
    }
    for (const auto& [column, value] : row.values) found->set(column, value);
}

std::vector<std::string> insertStatements(std::string_view database, const Rows& rows, database::Dialect dialect) {
    std::vector<std::string> statements;
    for (const Table& table : tables()) {
        if (table.database != database) continue;
        std::vector<const Row*> own;
        for (const Row& row : rows) {
            if (row.table == table.name) own.push_back(&row);
        }
        insertInto(table, own, wordsOf(dialect), statements);
    }
    return statements;
}

std::string dayFrom(std::string_view day, long long days) {
    return text::dateText(text::daysLater(text::dateFromText(day), days));
}

} // namespace kestrel::setup
