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
    const std::string user = "Provider=" + row[1] + ";User ID=" + row[2] + ";Password=" + row[3] + ";";
    if (row[0] == "S") return user + "Data Source=" + row[5] + ";Initial Catalog=" + row[6] + ";";
    return user + "Data Source=" + row[4] + ";";
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
