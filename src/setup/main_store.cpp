#include "setup/main_store.hpp"

#include "text/characters.hpp"

namespace kestrel::setup {

namespace {

std::string trimmed(const Row& definition, std::string_view column) {
    return text::trim(definition.get(column).value_or(""));
}

bool isKnownKind(const std::string& kind) {
    return kind == "A" || kind == "S" || kind == "O";
}

} // namespace

std::string mainConnectionText(const Row& definition) {
    const std::string head = "Provider=" + trimmed(definition, "プロバイダ名") +
                             ";User ID=" + trimmed(definition, "ユーザーID") +
                             ";Password=" + trimmed(definition, "パスワード") + ";Data Source=";
    if (definition.get("db") == "S")
        return head + trimmed(definition, "サーバー名") + ";Initial Catalog=" + trimmed(definition, "データベース名") +
               ";";
    return head + trimmed(definition, "データソース名") + ";";
}

Result<Connection> openMainStore(const std::string& root) {
    const std::string path = databaseFile(root, "conf/usrcnfg");
    if (path.empty()) return platform::Failure{0, "there is no local database in " + root + "/conf"};
    const auto rows = readStore(path, "SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'");
    if (!rows) return platform::Failure{rows.failure().number, path + ": " + rows.failure().description};
    if (rows.value().empty()) return platform::Failure{0, "データベース定義 has no row GNR"};
    const Row& definition = rows.value().front();
    const std::string kind = definition.get("db").value_or("");
    if (!isKnownKind(kind)) return platform::Failure{0, "データベース定義: unknown database kind " + kind};
    return database::openConnection(mainConnectionText(definition), database::Role::beside);
}

} // namespace kestrel::setup
