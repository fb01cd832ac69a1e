#include "setup/main_place.hpp"

#include "platform/database/names.hpp"
#include "platform/database/server_databases.hpp"
#include "setup/words.hpp"
#include "text/characters.hpp"

#include <algorithm>
#include <filesystem>

namespace kestrel::setup {

namespace fs = std::filesystem;

using database::connectionValue;
using database::Dialect;
using database::pairValue;
using platform::Failure;

namespace {

constexpr const char* definitionSql = "SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'";

MainDefinition definitionOf(const Row& row) {
    const auto part = [&](const char* column) { return text::trim(row.get(column).value_or("")); };
    return {.kind = row.get("db").value_or(""),
            .provider = part("プロバイダ名"),
            .user = part("ユーザーID"),
            .password = part("パスワード"),
            .dataSource = part("データソース名"),
            .server = part("サーバー名"),
            .catalog = part("データベース名")};
}

bool fileProvider(std::string_view provider) {
    return database::sameName(provider, "Microsoft.ACE.OLEDB.12.0") ||
           database::sameName(provider, "Microsoft.Jet.OLEDB.4.0");
}

Status refuseText(std::string_view kind, std::string_view connectionText) {
    if (!isKnownKind(kind)) return Failure{0, "there is no database kind " + std::string(kind) + ", only A, S and O"};
    const std::string provider = connectionValue(connectionText, "Provider");
    if (provider.empty()) return Failure{0, "the connection text names no Provider"};
    if (fileProvider(provider)) return Failure{0, provider + " opens files; a server is asked for"};
    if (connectionValue(connectionText, "Data Source").empty())
        return Failure{0, "the connection text names no Data Source"};
    return platform::done();
}

// Oracle's place is one text, which may hold any sign.
bool oneText(std::string_view provider) {
    for (const std::string_view name : {"Oracle", "OraOLEDB", "MSDAORA"}) {
        if (database::sameName(provider.substr(0, name.size()), name)) return true;
    }
    return false;
}

} // namespace

bool isKnownKind(std::string_view kind) {
    return kind == "A" || kind == "S" || kind == "O";
}

Result<MainDefinition> readMainDefinition(const std::string& root) {
    const std::string file = databaseFile(root, "conf/usrcnfg");
    if (file.empty()) return Failure{0, root + " holds no configuration conf/usrcnfg"};
    const auto rows = readStore(file, definitionSql);
    if (!rows) return rows.failure();
    if (rows.value().empty()) return Failure{0, file + ": データベース定義 has no row GNR"};
    return definitionOf(rows.value().front());
}

bool namesFile(const MainDefinition& definition) {
    return fileProvider(definition.provider);
}

Result<Connection> openMain(const MainDefinition& definition, const database::Settings& settings) {
    return database::openConnection(database::mainConnectionText(definition), database::Role::beside, settings);
}

Result<Connection> openMainStore(const std::string& root) {
    const auto definition = readMainDefinition(root);
    if (!definition) return definition.failure();
    if (isKnownKind(definition.value().kind)) return openMain(definition.value());
    return Failure{0, "データベース定義: unknown database kind " + definition.value().kind};
}

// Values are stored as they have to stand in a connection text: the programs only join them.
Result<MainDefinition> definitionFor(std::string_view kind, std::string_view connectionText) {
    if (Status status = refuseText(kind, connectionText); !status) return status.failure();
    MainDefinition definition{.kind = std::string(kind),
                              .provider = pairValue(connectionValue(connectionText, "Provider")),
                              .user = pairValue(connectionValue(connectionText, "User ID")),
                              .password = pairValue(connectionValue(connectionText, "Password")),
                              .dataSource = {},
                              .server = {},
                              .catalog = {}};
    const auto place = oneText(definition.provider)
                           ? database::ServerPlace{connectionValue(connectionText, "Data Source"), ""}
                           : database::serverPlace(connectionText);
    definition.dataSource = pairValue(place.database.empty() ? place.host : place.host + "/" + place.database);
    definition.server = pairValue(place.host);
    definition.catalog = pairValue(place.database);
    return definition;
}

Row definitionRow(const MainDefinition& definition, Dialect server) {
    return {"データベース定義",
            {{"情報種類", "GNR"},
             {"db", definition.kind},
             {"dbmw", wordsOf(server).middleware},
             {"データベース名", definition.catalog},
             {"サーバー名", definition.server},
             {"ユーザーID", definition.user},
             {"パスワード", definition.password},
             {"プロバイダ名", definition.provider},
             {"データソース名", definition.dataSource}}};
}

Status writeMainDefinition(const std::string& file, const Row& row) {
    auto store = openStore(file);
    if (!store) return store.failure();
    const auto present = readRows(store.value(), definitionSql);
    if (!present) return present.failure();
    if (present.value().empty()) return Failure{0, file + ": データベース定義 has no row GNR"};
    std::string sql = "UPDATE " + row.table + " SET ";
    for (const auto& [column, value] : row.values) {
        if (column == "情報種類") continue;
        if (!sql.ends_with("SET ")) sql += ", ";
        sql += column + " = " + literal(value, wordsOf(Dialect::sqlite));
    }
    return store.value().executeNative(sql + " WHERE 情報種類 = 'GNR'");
}

std::vector<std::string> userConfigurations(const std::string& root) {
    std::vector<std::string> files;
    std::error_code ignored;
    for (const auto& user : fs::directory_iterator(root + "/users", ignored)) {
        const std::string file = databaseFile(user.path().string(), "conf/usrcnfg");
        if (!file.empty()) files.push_back(file);
    }
    std::ranges::sort(files);
    return files;
}

} // namespace kestrel::setup
