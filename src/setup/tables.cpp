#include "setup/tables.hpp"

#include "setup/tsv.hpp"

#include <algorithm>
#include <stdexcept>

namespace kestrel::setup {

namespace {

std::vector<std::string> namesIn(std::string_view joined) {
    const auto parts = split(joined, '+');
    return {parts.begin(), parts.end()};
}

void addLine(Table& table, const std::vector<std::string_view>& line) {
    const std::string name(line[2]), type(line[3]), role(line[4]);
    if (type == "index") {
        table.indexes.push_back({name, namesIn(role)});
        return;
    }
    Column column{name, type, role == "key", role == "key" || role == "required", {}};
    if (type == "generated") column.parts = namesIn(role);
    if (role == "index") table.indexes.push_back({name, {name}});
    table.columns.push_back(std::move(column));
}

std::vector<Table> readTables() {
    std::vector<Table> result;
    for (const auto& line : fieldsOf("tables")) {
        if (line.size() != 5) throw std::logic_error("tables.tsv: a line has not five fields");
        if (result.empty() || result.back().name != line[1]) {
            result.push_back({std::string(line[0]), std::string(line[1]), {}, {}});
        }
        addLine(result.back(), line);
    }
    return result;
}

std::string joined(const std::vector<std::string>& names, std::string_view separator) {
    std::string text;
    for (const std::string& name : names) {
        if (!text.empty()) text += separator;
        text += name;
    }
    return text;
}

std::string joinOf(const Column& column) {
    std::vector<std::string> parts;
    for (const std::string& part : column.parts) parts.push_back("ifnull(" + part + ",'')");
    return joined(parts, "||");
}

std::string columnText(const Column& column) {
    if (column.type == "generated") return column.name + " TEXT GENERATED ALWAYS AS (" + joinOf(column) + ") VIRTUAL";
    const std::string type = column.type == "text" ? "TEXT" : column.type == "integer" ? "INTEGER" : "NUMERIC";
    return column.name + " " + type + (column.required ? " NOT NULL" : "");
}

// A table with a key of several columns is read by the first of them, so its rows lie in the order of the key. One with
// a single column is read by the whole key, and its long rows stay out of the tree that is searched.
std::string tableText(const Table& table) {
    std::vector<std::string> lines;
    for (const Column& column : table.columns) lines.push_back(columnText(column));
    const auto keys = keyColumns(table);
    if (!keys.empty()) lines.push_back("PRIMARY KEY (" + joined(keys, ", ") + ")");
    return "CREATE TABLE " + table.name + " (" + joined(lines, ", ") + ")" + (keys.size() > 1 ? " WITHOUT ROWID" : "");
}

} // namespace

const std::vector<Table>& tables() {
    static const std::vector<Table> all = readTables();
    return all;
}

const Table& tableNamed(std::string_view name) {
    const auto found = std::ranges::find(tables(), name, &Table::name);
    if (found == tables().end()) throw std::logic_error("no table " + std::string(name));
    return *found;
}

std::vector<std::string> keyColumns(const Table& table) {
    std::vector<std::string> names;
    for (const Column& column : table.columns) {
        if (column.key) names.push_back(column.name);
    }
    return names;
}

std::vector<std::string> createStatements(std::string_view database) {
    std::vector<std::string> statements;
    for (const Table& table : tables()) {
        if (table.database != database) continue;
        statements.push_back(tableText(table));
        for (const Index& index : table.indexes) {
            statements.push_back("CREATE INDEX " + table.name + "_" + index.name + " ON " + table.name + " (" +
                                 joined(index.columns, ", ") + ")");
        }
    }
    return statements;
}

} // namespace kestrel::setup
