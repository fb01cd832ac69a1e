#include "scenario/installation_row.hpp"

#include "platform/database/connection_text.hpp"
#include "platform/database/server_databases.hpp"
#include "scenario/databases.hpp"
#include "scenario/run.hpp"
#include "scenario/scenario_error.hpp"
#include "values/modValues.hpp"

namespace kestrel::scenario {

namespace {

void setColumn(const std::string& column, const std::string& value) {
    executeBeside(Which::localMaster,
                  "UPDATE データベース定義 SET " + column + " = '" + quoteSqlText(value) + "' WHERE 情報種類 = 'GNR'");
}

// Kind, provider, user, password, data source, server, catalog; nulls as empty texts.
std::vector<std::string> readRow() {
    const Rows rows = rowsBeside(
        Which::localMaster, "SELECT db,プロバイダ名,ユーザーID,パスワード,データソース名,サーバー名,データベース名 "
                            "FROM データベース定義 WHERE 情報種類 = 'GNR'");
    std::vector<std::string> row = rows.empty() ? std::vector<std::string>(7) : rows[0];
    for (std::string& value : row)
        if (value == "NULL") value.clear();
    return row;
}

std::string joinedText(const std::vector<std::string>& row) {
    return database::mainConnectionText({.kind = row[0],
                                         .provider = row[1],
                                         .user = row[2],
                                         .password = row[3],
                                         .dataSource = row[4],
                                         .server = row[5],
                                         .catalog = row[6]});
}

} // namespace

void redirectMain(const std::string& kind, const std::string& connectionText) {
    if (!kind.empty()) setColumn("db", kind);
    if (connectionText.empty()) return;
    setColumn("プロバイダ名", database::connectionValue(connectionText, "Provider"));
    setColumn("ユーザーID", database::connectionValue(connectionText, "User ID"));
    setColumn("パスワード", database::connectionValue(connectionText, "Password"));
    // Kind "S" looks for server and catalogue, the others for one text that names both.
    const auto [host, name] = database::serverPlace(connectionText);
    setColumn("データソース名", host + "/" + name);
    setColumn("サーバー名", host);
    setColumn("データベース名", name);
}

void takeMain() {
    run().kind = "A";
    run().mainText = mainFileText(run().places.root);
    try {
        const std::vector<std::string> row = readRow();
        if (row[0].empty()) return;
        run().kind = row[0];
        run().mainText = joinedText(row);
    } catch (const ScenarioError&) {
        return; // an installation in trouble is what the scenario is about
    }
}

} // namespace kestrel::scenario
