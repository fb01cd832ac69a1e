#include "setup/check.hpp"

#include "setup/installation.hpp"
#include "setup/main_place.hpp"
#include "setup/server_target.hpp"
#include "setup/store.hpp"
#include "setup/tables.hpp"
#include "text/numbers.hpp"

#include <algorithm>
#include <filesystem>
#include <optional>

namespace kestrel::setup {

namespace fs = std::filesystem;

namespace {

using Lines = std::vector<std::string>;

constexpr const char* folders[] = {"prgbin", "data", "conf", "report", "manual", "users"};
constexpr const char* databases[] = {"data/gnrdb", "conf/usrcnfg", "report/repdb", "report/repfrmdb"};

void checkTree(const std::string& root, Lines& lines) {
    for (const std::string name : folders) {
        if (!fs::is_directory(root + "/" + name)) lines.push_back("folder " + name + " is missing");
    }
    for (const std::string name : databases) {
        if (databaseFile(root, name).empty()) lines.push_back("file " + name + ".accdb is missing");
    }
    if (!fs::exists(root + "/" + programFile)) lines.push_back(std::string("file ") + programFile + " is missing");
}

void checkColumns(Connection& store, const Table& table, Lines& lines) {
    const auto names = columnNames(store, table.name);
    if (!names) {
        lines.push_back("table " + table.name + " is missing: " + names.failure().description);
        return;
    }
    for (const Column& column : table.columns) {
        if (std::ranges::find(names.value(), column.name) == names.value().end()) {
            lines.push_back("column " + table.name + "." + column.name + " is missing");
        }
    }
}

void checkTables(Connection& store, std::string_view database, Lines& lines) {
    for (const Table& table : tables()) {
        if (table.database == database) checkColumns(store, table, lines);
    }
}

// Nothing when the file is no database, with one line for all that would be in it.
std::optional<Connection> openChecked(const std::string& path, Lines& lines) {
    auto store = openStore(path);
    if (store) return std::move(store.value());
    lines.push_back(path + " can't be read: " + store.failure().description);
    return std::nullopt;
}

// The first row of the SELECT; an empty row when there is none or it fails (a missing table has its own line).
Row firstRow(Connection& store, const std::string& sql) {
    const auto rows = readRows(store, sql);
    return rows && !rows.value().empty() ? rows.value().front() : Row{};
}

bool thereIs(const Row& row) {
    return !row.values.empty();
}

std::string textOf(const Row& row, std::string_view column) {
    return row.get(column).value_or("");
}

struct RequiredRow {
    const char* table;
    const char* column;
    const char* value;
};
constexpr RequiredRow localRows[] = {{"データベース定義", "情報種類", "GNR"},
                                     {"動作環境定義", "動作環境定義ID", "001"},
                                     {"営業支援", "プログラムID", "連絡台帳入力"},
                                     {"営業支援", "プログラムID", "連絡台帳帳票"}};
constexpr RequiredRow mainRows[] = {
    {"Mユーザ", "ID", "0001"}, {"A番号情報", "番号ID", "16310"}, {"A番号情報", "番号ID", "01110"}};

std::string selectRow(const RequiredRow& row) {
    return std::string("SELECT * FROM ") + row.table + " WHERE " + row.column + " = '" + row.value + "'";
}

void checkRequiredRow(Connection& store, const RequiredRow& row, Lines& lines) {
    if (!thereIs(firstRow(store, selectRow(row)))) {
        lines.push_back(std::string("table ") + row.table + " has no row " + row.column + " = " + row.value);
    }
}

// A screen takes the place of a class in its list for its value, so the values have to be 0, 1, 2 and so on.
void checkClasses(Connection& store, Lines& lines) {
    for (const Table& table : tables()) {
        if (!table.name.starts_with("K")) continue;
        const auto rows = readRows(store, "SELECT 区分 FROM " + table.name + " ORDER BY 区分");
        if (!rows) continue;
        if (rows.value().empty()) lines.push_back("table " + table.name + " is empty");
        for (std::size_t i = 0; i < rows.value().size(); ++i) {
            if (textOf(rows.value()[i], "区分") == std::to_string(i)) continue;
            lines.push_back("table " + table.name + ": 区分 is not consecutive from 0");
            break;
        }
    }
}

std::string selectParts(const Table& table, const Column& column) {
    std::string sql = "SELECT " + column.name;
    for (const std::string& part : column.parts) sql += "," + part;
    return sql + " FROM " + table.name;
}

// Column 0 of the present row is the joined text, the others are its parts.
bool isJoined(const database::RecordSet& records) {
    std::string joined;
    for (int i = 1; i < records.columnCount(); ++i) joined += records.view(i).value_or("");
    return records.view(0) == joined;
}

// Stays silent where a column is missing: that has its own line.
void checkJoined(Connection& store, const Table& table, const Column& column, Lines& lines) {
    auto records = store.open(selectParts(table, column));
    if (!records) return;
    std::size_t wrong = 0;
    for (; !records.value().eof(); records.value().moveNext()) wrong += isJoined(records.value()) ? 0 : 1;
    if (wrong) {
        lines.push_back(table.name + "." + column.name + " is not the joined text in " + std::to_string(wrong) +
                        " rows");
    }
}

void checkGenerated(Connection& store, Lines& lines) {
    for (const Table& table : tables()) {
        for (const Column& column : table.columns) {
            if (column.type == "generated") checkJoined(store, table, column, lines);
        }
    }
}

bool permits(const Row& row, const std::string& column) {
    return text::leadingNumber(textOf(row, column)) == 0;
}

// A row for the member and this program replaces the right of the program's class.
bool mayOpen(Connection& main, Connection& local, const Row& member) {
    const Row own =
        firstRow(main, "SELECT * FROM 担当者別操作許可プログラム WHERE 担当者コード = '" + textOf(member, "コード") +
                           "' AND 業務メニュ = '営業支援' AND プログラムID = '連絡台帳入力'");
    if (thereIs(own)) return permits(own, "操作許可");
    const Row program = firstRow(local, "SELECT * FROM 営業支援 WHERE プログラムID = '連絡台帳入力'");
    const std::string right = "処理分類" + textOf(program, "処理分類") + "操作許可";
    return permits(member, "操作許可") && permits(member, right);
}

void checkMember(Connection& main, Connection& local, Lines& lines) {
    const Row environment = firstRow(local, "SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'");
    if (!thereIs(environment)) return;
    const std::string code = textOf(environment, "起動担当者コード");
    if (code.empty()) {
        lines.push_back("動作環境定義 names no start-up member");
        return;
    }
    const Row member = firstRow(main, "SELECT * FROM M担当者 WHERE コード = '" + code + "'");
    if (!thereIs(member)) {
        lines.push_back("the start-up member " + code + " is not in M担当者");
    } else if (!mayOpen(main, local, member)) {
        lines.push_back("the start-up member " + code + " may not open the program");
    }
}

void checkMain(Connection& main, Connection& local, Lines& lines) {
    checkTables(main, "main", lines);
    for (const RequiredRow& row : mainRows) checkRequiredRow(main, row, lines);
    checkClasses(main, lines);
    checkGenerated(main, lines);
    checkMember(main, local, lines);
}

std::optional<Connection> openMainFile(const MainDefinition& definition, Lines& lines) {
    const std::string path = database::connectionValue(database::mainConnectionText(definition), "Data Source");
    if (fs::is_regular_file(path)) return openChecked(path, lines);
    lines.push_back("the main database " + path + " is missing");
    return std::nullopt;
}

std::optional<Connection> openMainServer(const MainDefinition& definition, Lines& lines) {
    auto main = openMain(definition, {.connectionTimeout = secondsForServer});
    if (!main) {
        lines.push_back("the main database on the server can't be opened: " + main.failure().description);
        return std::nullopt;
    }
    if (Status status = refuseOrder(main.value()); !status) lines.push_back(status.failure().description);
    return std::move(main.value());
}

// The main database; nothing where there is none to look into, with a line that says why.
std::optional<Connection> openDefined(const MainDefinition& definition, Lines& lines) {
    if (!isKnownKind(definition.kind)) lines.push_back("データベース定義: unknown database kind " + definition.kind);
    return namesFile(definition) ? openMainFile(definition, lines) : openMainServer(definition, lines);
}

void checkDatabases(const std::string& root, Lines& lines) {
    const std::string localPath = databaseFile(root, "conf/usrcnfg");
    if (localPath.empty()) return;
    auto local = openChecked(localPath, lines);
    if (!local) return;
    checkTables(*local, "local", lines);
    for (const RequiredRow& row : localRows) checkRequiredRow(*local, row, lines);
    const auto definition = readMainDefinition(root);
    if (!definition) return;
    if (auto main = openDefined(definition.value(), lines)) checkMain(*main, *local, lines);
}

} // namespace

std::vector<std::string> checkInstallation(std::string_view folder) {
    const std::string root(folder);
    if (!fs::is_directory(root)) return {"there is no folder " + root};
    Lines lines;
    checkTree(root, lines);
    try {
        checkDatabases(root, lines);
    } catch (const database::DatabaseError& error) {
        lines.push_back(std::string("a database can't be read to its end: ") + error.what());
    }
    return lines;
}

} // namespace kestrel::setup
