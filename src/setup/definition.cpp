#include "setup/definition.hpp"

#include <algorithm>

namespace kestrel::setup {

using database::Dialect;

namespace {

// The texts that the function makes of the elements, with the separator between them.
template <class Elements, class Make>
std::string joined(const Elements& elements, std::string_view separator, Make make) {
    std::string text;
    for (const auto& element : elements) {
        if (!text.empty()) text += separator;
        text += make(element);
    }
    return text;
}

std::string quotedList(const std::vector<std::string>& names, std::string_view separator, const Words& words) {
    return joined(names, separator, [&](const std::string& name) { return quoted(name, words); });
}

bool inIndex(const Table& table, const Column& column) {
    return column.key || std::ranges::any_of(table.indexes, [&](const Index& index) {
               return std::ranges::find(index.columns, column.name) != index.columns.end();
           });
}

std::string typeOf(const Table& table, const Column& column, const Words& words) {
    if (column.type == "integer") return words.integer;
    if (column.type == "number") return words.number;
    return inIndex(table, column) ? words.keyText : words.text;
}

std::string generatedText(const Column& column, const Words& words) {
    const std::string parts = joined(column.parts, words.joint, [&](const std::string& part) {
        return filledPattern(words.joinedPart, quoted(part, words));
    });
    return filledPattern(words.joinedColumn, parts);
}

std::string columnText(const Table& table, const Column& column, const Words& words) {
    const std::string name = quoted(column.name, words) + " ";
    if (column.type == "generated") return name + generatedText(column, words);
    return name + typeOf(table, column, words) + (column.required ? " NOT NULL" : "");
}

// In the embedded engine a table with a key of several columns is read by the first of them, so its rows lie in the
// order of the key. One with a single column is read by the whole key, and its long rows stay out of the tree that is
// searched.
std::string tableEnd(std::size_t keys, const Words& words) {
    return words.dialect == Dialect::sqlite && keys > 1 ? " WITHOUT ROWID" : words.tableEnd;
}

std::string tableText(const Table& table, const Words& words) {
    std::string lines =
        joined(table.columns, ", ", [&](const Column& column) { return columnText(table, column, words); });
    const auto keys = keyColumns(table);
    if (!keys.empty()) lines += ", PRIMARY KEY (" + quotedList(keys, ", ", words) + ")";
    return "CREATE TABLE " + quoted(table.name, words) + " (" + lines + ")" + tableEnd(keys.size(), words);
}

// Indexes stand in one room with the tables in most families, so the table's name is part of theirs.
std::string indexHead(const Table& table, const Index& index, const Words& words) {
    return "CREATE INDEX " + quoted(table.name + "_" + index.name, words) + " ON " + quoted(table.name, words);
}

bool isRequired(const Table& table, const std::string& name) {
    const auto column = std::ranges::find(table.columns, name, &Column::name);
    return column != table.columns.end() && column->required;
}

std::string indexText(const Table& table, const Index& index, const Words& words) {
    const auto place = [&](const std::string& name) {
        return quoted(name, words) + (isRequired(table, name) ? "" : words.nullsInIndex);
    };
    return indexHead(table, index, words) + " (" + joined(index.columns, ", ", place) + ")";
}

std::string searchText(const Table& table, const Index& search, const Words& words) {
    return indexHead(table, search, words) + " USING gin (" +
           joined(search.columns, ", ",
                  [&](const std::string& name) { return filledPattern(words.partsOfText, quoted(name, words)); }) +
           ")";
}

} // namespace

std::vector<std::string> createStatements(std::string_view database, Dialect dialect) {
    const Words& words = wordsOf(dialect);
    std::vector<std::string> statements;
    for (const Table& table : tables()) {
        if (table.database != database) continue;
        statements.push_back(tableText(table, words));
        for (const Index& index : table.indexes) statements.push_back(indexText(table, index, words));
    }
    return statements;
}

std::vector<std::string> searchStatements(std::string_view database, Dialect dialect) {
    const Words& words = wordsOf(dialect);
    std::vector<std::string> statements;
    if (!words.partsOfText) return statements;
    for (const Table& table : tables()) {
        if (table.database != database) continue;
        for (const Index& search : table.searches) statements.push_back(searchText(table, search, words));
    }
    return statements;
}

std::string dropStatement(std::string_view table, Dialect dialect) {
    return "DROP TABLE " + quoted(table, wordsOf(dialect));
}

std::string insertHead(const Table& table, const Words& words) {
    return "INSERT INTO " + quoted(table.name, words) + " (" + quotedList(writtenColumns(table), ",", words) +
           ") VALUES ";
}

} // namespace kestrel::setup
