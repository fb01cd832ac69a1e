#include "scenario/databases.hpp"

#include "platform/database/connection.hpp"
#include "platform/database/connection_text.hpp"
#include "platform/files.hpp"
#include "scenario/run.hpp"
#include "scenario/scenario_error.hpp"
#include "session/sessionValues.hpp"

namespace kestrel::scenario {

namespace {

std::string fileConnection(const std::string& path) {
    return "Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source=" + path + ";";
}

std::string masterText() {
    const std::string newer = run().places.root + "/conf/usrcnfg.accdb";
    return fileConnection(platform::fileExists(newer) ? newer : run().places.root + "/conf/usrcnfg.mdb");
}

// The local database in use is the one that the program opened last; before it ever did, the master.
std::string connectionText(Which which) {
    if (which == Which::main) return run().mainText;
    if (which == Which::local && !connections.localText.empty()) return connections.localText;
    return masterText();
}

database::Connection connect(Which which) {
    auto opened = database::openConnection(connectionText(which), database::Role::beside);
    if (!opened) throw ScenarioError("the database can't be opened: " + opened.failure().description);
    return std::move(opened.value());
}

std::vector<std::string> presentRow(const database::RecordSet& records) {
    std::vector<std::string> row;
    for (int i = 0; i < records.columnCount(); ++i)
        row.push_back(records.textOrNull(records.columnName(i)).value_or("NULL"));
    return row;
}

} // namespace

std::string mainFileText(const std::string& root) {
    return fileConnection(root + "/data/maindb.accdb");
}

std::string localFile() {
    return database::connectionValue(connectionText(Which::local), "Data Source");
}

std::string mainFile() {
    return database::connectionValue(connectionText(Which::main), "Data Source");
}

Which databaseNamed(std::string_view word, std::string& sql) {
    if (word == "main") return Which::main;
    if (word != "local") throw ScenarioError("a database is main or local");
    std::string_view rest = sql;
    if (!cutName(rest, "master")) return Which::local;
    sql = std::string(rest);
    return Which::localMaster;
}

void executeBeside(Which which, const std::string& sql) {
    database::Connection connection = connect(which);
    const auto done = connection.execute(sql);
    if (!done) throw ScenarioError("the statement fails: " + done.failure().description);
}

Rows rowsBeside(Which which, const std::string& sql) {
    database::Connection connection = connect(which);
    auto opened = connection.open(sql);
    if (!opened) throw ScenarioError("the statement fails: " + opened.failure().description);
    Rows rows;
    for (database::RecordSet& records = opened.value(); !records.eof(); records.moveNext())
        rows.push_back(presentRow(records));
    return rows;
}

std::vector<std::string> historyLines() {
    std::vector<std::string> lines;
    const std::string sql = "SELECT 摘要 FROM プログラム稼動履歴";
    auto connection = database::openConnection(connectionText(Which::local), database::Role::beside);
    if (!connection) return lines;
    auto opened = connection.value().open(sql);
    if (!opened) return lines;
    for (database::RecordSet& records = opened.value(); !records.eof(); records.moveNext())
        lines.push_back(records.text("摘要", ""));
    return lines;
}

} // namespace kestrel::scenario
