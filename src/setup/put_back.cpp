#include "setup/put_back.hpp"

#include "platform/clock.hpp"
#include "platform/identity.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"

#include <algorithm>

namespace kestrel::setup {

namespace {

void addName(std::string& list, std::string_view name) {
    list.append(list.empty() ? "" : ", ").append(name);
}

void addCondition(std::string& conditions, std::string_view column, const std::string& value) {
    conditions.append(conditions.empty() ? " WHERE " : " AND ").append(column).append(" = ").append(quotedText(value));
}

std::string whereScope(const LostRow& row) {
    std::string conditions;
    for (const std::string_view column : row.table->scope) addCondition(conditions, column, row.insert.value(column));
    return conditions;
}

std::string selectTyped(const LostRow& row, const std::string& conditions) {
    std::string columns;
    for (const ColumnNames names : {row.table->names, row.table->content})
        for (const std::string_view column : names)
            if (row.insert.has(column)) addName(columns, column);
    return "SELECT " + columns + " FROM " + std::string(row.table->name) + conditions;
}

std::string whereNumber(const LostRow& row, const std::string& number) {
    std::string conditions = whereScope(row);
    addCondition(conditions, row.table->number, number);
    return conditions;
}

// Whoever typed it again, or put it back, may have done so under any number. The first name finds the few rows to
// compare.
Result<bool> isThere(Connection& main, const LostRow& row) {
    std::string conditions = whereScope(row);
    const std::string_view name = row.table->names.front();
    if (row.insert.has(name) && !row.insert.value(name).empty()) addCondition(conditions, name, row.insert.value(name));
    const auto rows = readRows(main, selectTyped(row, conditions));
    if (!rows) return rows.failure();
    return std::ranges::any_of(rows.value(),
                               [&](const Row& there) { return holdsContent(*row.table, there, row.insert); });
}

Result<bool> isTaken(Connection& main, const LostRow& row, const std::string& number) {
    const auto rows = readRows(main, "SELECT " + std::string(row.table->number) + " FROM " +
                                         std::string(row.table->name) + whereNumber(row, number));
    if (!rows) return rows.failure();
    return !rows.value().empty();
}

// The highest number plus one, as the program counts; as text seven digits come before six, so that one may be taken.
Result<std::string> nextFree(Connection& main, const LostRow& row) {
    const std::string number(row.table->number);
    const auto rows = readRows(main, "SELECT TOP 1 " + number + " FROM " + std::string(row.table->name) +
                                         whereScope(row) + " ORDER BY " + number + " DESC");
    if (!rows) return rows.failure();
    const auto highest = rows.value().empty() ? "" : rows.value().front().get(number).value_or("");
    for (long long next = text::wholeNumber(highest) + 1;; ++next) {
        std::string candidate = text::zeroFilled(next, row.table->width);
        const auto taken = isTaken(main, row, candidate);
        if (!taken) return taken.failure();
        if (!taken.value()) return candidate;
    }
}

Result<Standing> standingOfTaken(Connection& main, const LostRow& row) {
    if (row.table->width > 0) {
        auto next = nextFree(main, row);
        if (!next) return next.failure();
        return Standing{Spot::taken, std::move(next.value())};
    }
    const auto rows = readRows(main, selectTyped(row, whereNumber(row, row.insert.value(row.table->number))));
    if (!rows) return rows.failure();
    // Under its own number a row of the same names is the row itself, whatever was made of it since.
    const bool itself =
        std::ranges::any_of(rows.value(), [&](const Row& there) { return holdsNames(*row.table, there, row.insert); });
    return Standing{itself ? Spot::there : Spot::noOther, ""};
}

std::string statementOf(const LostRow& row, const Standing& standing) {
    if (standing.spot != Spot::taken) return row.insert.statement;
    return statementWith(row.insert, row.table->number, standing.next);
}

bool isWritable(const Standing& standing) {
    return standing.spot == Spot::free || standing.spot == Spot::taken;
}

} // namespace

Result<Standing> standingOf(Connection& main, const LostRow& row) {
    const auto there = isThere(main, row);
    if (!there) return there.failure();
    if (there.value()) return Standing{Spot::there, ""};
    const auto taken = isTaken(main, row, row.insert.value(row.table->number));
    if (!taken) return taken.failure();
    if (!taken.value()) return Standing{Spot::free, ""};
    return standingOfTaken(main, row);
}

Result<Standing> putBack(Connection& main, const LostRow& row) {
    constexpr int attempts = 20;
    for (int attempt = 1;; ++attempt) {
        const auto standing = standingOf(main, row);
        if (!standing || !isWritable(standing.value())) return standing;
        const auto written = main.execute(statementOf(row, standing.value()));
        if (written) return standing;
        const std::string& number =
            standing.value().next.empty() ? row.insert.value(row.table->number) : standing.value().next;
        const auto taken = isTaken(main, row, number);
        if (attempt == attempts || !taken || !taken.value()) return written.failure();
    }
}

Status tellHistory(const LostRow& row, const Standing& standing) {
    const std::string path = databaseFile(row.folder, "usrcnfg");
    auto store = openStore(path);
    if (!store) return store.failure();
    const std::string summary = "出力終了 " + text::replaceAll(statementOf(row, standing), "'", "''");
    std::string values = quotedText(platform::stampText(platform::now()));
    for (const std::string& value : {std::string("kestrel-setup"), text::zeroFilled(1, 12), summary, std::string(),
                                     std::string(), platform::userName()})
        values += ", " + quotedText(value);
    return store.value().execute("INSERT INTO プログラム稼動履歴 (実行日付,プログラムID,proccounter,摘要,"
                                 "運用事業所コード,起動担当者コード,ユーザID)VALUES (" +
                                 values + ")");
}

} // namespace kestrel::setup
