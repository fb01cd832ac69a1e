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
    if (type == "index" || type == "search") {
        (type == "index" ? table.indexes : table.searches).push_back({name, namesIn(role)});
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
            result.push_back({std::string(line[0]), std::string(line[1]), {}, {}, {}});
        }
        addLine(result.back(), line);
    }
    return result;
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

std::vector<std::string> writtenColumns(const Table& table) {
    std::vector<std::string> names;
    for (const Column& column : table.columns) {
        if (column.type != "generated") names.push_back(column.name);
    }
    return names;
}

} // namespace kestrel::setup
