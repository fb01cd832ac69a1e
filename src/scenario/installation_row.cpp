#include "scenario/installation_row.hpp"

#include "platform/database/connection_text.hpp"
#include "scenario/databases.hpp"
#include "scenario/run.hpp"
#include "scenario/scenario_error.hpp"
#include "values/modValues.hpp"

#include <array>

namespace kestrel::scenario {

namespace {

void setColumn(const std::string& column, const std::string& value) {
    executeBeside(Which::localMaster,
                  "UPDATE データベース定義 SET " + column + " = '" + quoteSqlText(value) + "' WHERE 情報種類 = 'GNR'");
}

struct Part {
    const char* key;
    const char* column;
};

// The server's name stands where kind "S" looks for it and the file's where the others do.
constexpr std::array parts{Part{"Provider", "プロバイダ名"},  Part{"User ID", "ユーザーID"},
                           Part{"Password", "パスワード"},    Part{"Data Source", "データソース名"},
                           Part{"Data Source", "サーバー名"}, Part{"Initial Catalog", "データベース名"}};

// Kind, provider, user, password, file, server, catalog; nulls as empty texts.
std::vector<std::string> readRow() {
    std::string sql = "SELECT db";
    for (const Part& part : parts) sql += std::string(",") + part.column;
    const Rows rows = rowsBeside(Which::localMaster, sql + " FROM データベース定義 WHERE 情報種類 = 'GNR'");
    std::vector<std::string> row = rows.empty() ? std::vector<std::string>(parts.size() + 1) : rows[0];
    for (std::string& value : row)
        if (value == "NULL") value.clear();
    return row;
}

std::string joinedText(const std::vector<std::string>& row) {
    const std::string& source = row[0] == "S" ? row[5] : row[4];
    std::string text = "Provider=" + row[1] + ";User ID=" + row[2] + ";Password=" + row[3] + ";Data Source=" + source;
    return text + (row[6].empty() ? ";" : ";Initial Catalog=" + row[6] + ";");
}

} // namespace

void redirectMain(const std::string& kind, const std::string& connectionText) {
    if (!kind.empty()) setColumn("db", kind);
    if (connectionText.empty()) return;
    for (const Part& part : parts) setColumn(part.column, database::connectionValue(connectionText, part.key));
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
