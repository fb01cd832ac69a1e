#include "setup/moved_tables.hpp"

#include "setup/definition.hpp"
#include "setup/digest.hpp"
#include "setup/main_database.hpp"

#include <algorithm>
#include <optional>

namespace kestrel::setup {

using database::Dialect;
using database::RecordSet;
using platform::Failure;

namespace {

using Values = std::vector<std::optional<std::string_view>>;

// One table, with the columns that are read on both sides and their digest on the first.
struct Moved {
    const Table* table = nullptr;
    std::vector<std::string> columns; // none: the source hasn't got the table
    Digest digest;
};

bool holds(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

bool definesColumn(const Table& table, const std::string& name) {
    return std::ranges::find(table.columns, name, &Column::name) != table.columns.end();
}

const Table* mainTable(const std::string& name) {
    const auto found = std::ranges::find_if(
        tables(), [&](const Table& table) { return table.database == "main" && table.name == name; });
    return found == tables().end() ? nullptr : &*found;
}

// In the order of the definition, which is also that of the target's columns.
Result<Moved> movedTable(Connection& source, const Table& table) {
    const auto present = columnNames(source, table.name);
    if (!present) return present.failure();
    Moved moved{&table, {}, {}};
    for (const Column& column : table.columns) {
        if (holds(present.value(), column.name)) moved.columns.push_back(column.name);
    }
    return moved;
}

Result<std::vector<Moved>> movedTables(Connection& source) {
    const auto present = presentTables(source);
    if (!present) return present.failure();
    std::vector<Moved> all;
    for (const Table& table : tables()) {
        if (table.database != "main") continue;
        auto moved = holds(present.value(), table.name) ? movedTable(source, table) : Moved{&table, {}, {}};
        if (!moved) return moved.failure();
        all.push_back(std::move(moved.value()));
    }
    return all;
}

std::string selectAll(const Moved& moved, const Words& words) {
    std::string sql;
    for (const std::string& column : moved.columns) sql += (sql.empty() ? "SELECT " : ",") + quoted(column, words);
    return sql + " FROM " + quoted(moved.table->name, words);
}

// The values of the present row in the order of the statement that asked for them.
void takeValues(const RecordSet& records, Values& values) {
    values.clear();
    for (int i = 0; i < records.columnCount(); ++i) values.push_back(records.view(i));
}

Counting counting(const Moved& moved, Dialect target) {
    return countingFor(*moved.table, moved.columns, target == Dialect::oracle);
}

// Rows on their way into one table of the target, several in one statement.
class Inserter {
public:
    Inserter(Connection& itsTarget, const Moved& moved)
        : target(itsTarget), words(wordsOf(itsTarget.dialect())), head(insertHead(*moved.table, words)) {
        for (const std::string& column : writtenColumns(*moved.table)) {
            const auto found = std::ranges::find(moved.columns, column);
            places.push_back(found == moved.columns.end() ? moved.columns.size()
                                                          : static_cast<std::size_t>(found - moved.columns.begin()));
        }
    }

    Status add(const Values& values) {
        statement += statement.empty() ? head : ",";
        std::string_view sign = "(";
        for (const std::size_t place : places) {
            statement += sign;
            statement += literal(place < values.size() ? values[place] : std::nullopt, words);
            sign = ",";
        }
        statement += ")";
        return ++rows < words.rowsOfOneInsert ? platform::done() : flush();
    }

    Status flush() {
        if (statement.empty()) return platform::done();
        Status status = target.executeNative(statement);
        statement.clear();
        rows = 0;
        return status;
    }

private:
    Connection& target;
    const Words& words;
    std::string head;
    std::vector<std::size_t> places; // of each written column among the values; behind them: it has none
    std::string statement;
    std::size_t rows = 0;
};

Failure inTable(const Moved& moved, const Failure& failure) {
    return {failure.number, "table " + moved.table->name + ": " + failure.description};
}

Status copyRows(Connection& source, Connection& target, Moved& moved) {
    if (moved.columns.empty()) return platform::done();
    auto records = source.openNative(selectAll(moved, wordsOf(source.dialect())));
    if (!records) return records.failure();
    const Counting how = counting(moved, target.dialect());
    Inserter inserter(target, moved);
    Values values;
    for (; !records.value().eof(); records.value().moveNext()) {
        takeValues(records.value(), values);
        addRow(moved.digest, how, values);
        if (Status status = inserter.add(values); !status) return status;
    }
    return inserter.flush();
}

Status compareRows(Connection& target, const Moved& moved) {
    if (moved.columns.empty()) return platform::done();
    auto records = target.openNative(selectAll(moved, wordsOf(target.dialect())));
    if (!records) return records.failure();
    const Counting how = counting(moved, target.dialect());
    Digest digest;
    Values values;
    for (; !records.value().eof(); records.value().moveNext()) {
        takeValues(records.value(), values);
        addRow(digest, how, values);
    }
    if (digest == moved.digest) return platform::done();
    if (digest.rows != moved.digest.rows) {
        return Failure{0, "the file has " + std::to_string(moved.digest.rows) + " rows, the server " +
                              std::to_string(digest.rows)};
    }
    return Failure{0, "the server does not hold the same texts as the file"};
}

Status runEach(Connection& target, const std::vector<std::string>& statements) {
    for (const std::string& sql : statements) {
        if (Status status = target.executeNative(sql); !status) return status;
    }
    return platform::done();
}

// Indexes of parts of texts are made last, over all rows at once.
Status fillTarget(Connection& source, Connection& target, std::vector<Moved>& all, std::ostream& progress) {
    const Dialect dialect = target.dialect();
    if (Status status = runEach(target, createStatements("main", dialect)); !status) return status;
    for (Moved& moved : all) {
        if (Status status = copyRows(source, target, moved); !status) return inTable(moved, status.failure());
        progress << moved.table->name << ": " << moved.digest.rows << " rows" << std::endl;
    }
    return searchesAreIndexed(target) ? runEach(target, searchStatements("main", dialect)) : platform::done();
}

} // namespace

Result<std::vector<std::string>> unknownParts(Connection& source) {
    const auto present = presentTables(source);
    if (!present) return present.failure();
    std::vector<std::string> unknown;
    for (const std::string& name : present.value()) {
        if (name.starts_with("sqlite_")) continue; // the engine's own
        const Table* table = mainTable(name);
        if (!table) unknown.push_back("table " + name);
        if (!table) continue;
        const auto columns = columnNames(source, name);
        if (!columns) return columns.failure();
        for (const std::string& column : columns.value()) {
            if (!definesColumn(*table, column)) unknown.push_back("column " + name + "." + column);
        }
    }
    return unknown;
}

Status copyMainTables(Connection& source, Connection& target, std::ostream& progress) {
    auto all = movedTables(source);
    if (!all) return all.failure();
    allowSearches(target);
    const char* begin = wordsOf(target.dialect()).begin;
    if (begin) {
        if (Status status = target.executeNative(begin); !status) return status;
    }
    if (Status status = fillTarget(source, target, all.value(), progress); !status) return status;
    if (Status status = target.executeNative("COMMIT"); !status) return status;
    for (const Moved& moved : all.value()) {
        if (Status status = compareRows(target, moved); !status) return inTable(moved, status.failure());
    }
    progress << "every table was read again and is the same on both sides" << std::endl;
    return platform::done();
}

} // namespace kestrel::setup
