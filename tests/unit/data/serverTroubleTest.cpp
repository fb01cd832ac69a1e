// What a clerk's program does when the server of the shared database is away, goes away, or won't have it.
#include "data/modGateway.hpp"

#include "../server.hpp"
#include "installed.hpp"
#include "platform/database/connection_text.hpp"
#include "platform/database/server_databases.hpp"
#include "scenario/server_main.hpp"

namespace kestrel {

namespace {

using Lines = std::vector<std::string>;

class ServerTrouble : public Installed {
protected:
    scenario::ServerMain server{test::testServer()};

    void SetUp() override { KESTREL_NEEDS_SERVER(); }

    // The installation's row that names the main database, as kind "S" reads it.
    void nameServer(const std::string& text) {
        const auto [host, name] = database::serverPlace(text);
        const auto part = [&](std::string_view key) { return "'" + database::connectionValue(text, key) + "'"; };
        local("UPDATE データベース定義 SET db = 'S', プロバイダ名 = 'PostgreSQL', ユーザーID = " + part("User ID") +
              ", パスワード = " + part("Password") + ", サーバー名 = '" + host + "', データベース名 = '" + name +
              "' WHERE 情報種類 = 'GNR'");
    }
    bool start() { return openSystemDatabases() && openMainDatabase(); }
    std::string wholeHistory() const {
        std::string text;
        for (const std::string& line : history()) text += line + "\n";
        return text;
    }
};

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// Ends every session in the program's own database, as a server does that is started anew.
void endSessions(const std::string& text) {
    auto killer = database::openConnection(text, database::Role::beside);
    ASSERT_TRUE(killer);
    ASSERT_TRUE(
        killer.value().openNative("SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE datname = "
                                  "current_database() AND pid <> pg_backend_pid()"));
}

TEST_F(ServerTrouble, AServerThatIsAwayAtTheStartIsToldInTheHistory) {
    nameServer("Provider=PostgreSQL;User ID=u;Password=geheim;Data Source=/run/nowhere/k;");
    EXPECT_FALSE(start());
    EXPECT_FALSE(connections.mainOpen);
    ASSERT_EQ(history().size(), 1U);
    EXPECT_TRUE(history()[0].starts_with("エラー DB_OPEN ERROR")) << history()[0];
    EXPECT_PRED2(holds, history()[0], "/run/nowhere");
    EXPECT_EQ(boxes, Lines{});
}

TEST_F(ServerTrouble, AWrongPasswordIsToldWithoutThePassword) {
    nameServer(test::guardedTestServer());
    local("UPDATE データベース定義 SET パスワード = 'geheim' WHERE 情報種類 = 'GNR'");
    EXPECT_FALSE(start());
    EXPECT_PRED2(holds, wholeHistory(), "password authentication failed");
    EXPECT_FALSE(holds(wholeHistory(), "geheim"));
    for (const auto& entry : journal::entries()) EXPECT_FALSE(holds(entry.text, "geheim")) << entry.text;
}

TEST_F(ServerTrouble, AMissingCatalogueOrDriverIsTold) {
    nameServer(database::withDatabase(test::testServer(), "no such database"));
    EXPECT_FALSE(start());
    EXPECT_PRED2(holds, wholeHistory(), "no such database");
    local("UPDATE データベース定義 SET プロバイダ名 = 'OraOLEDB.Oracle' WHERE 情報種類 = 'GNR'");
    EXPECT_FALSE(start());
    EXPECT_PRED2(holds, wholeHistory(), "no ODBC driver for Oracle is installed");
}

TEST_F(ServerTrouble, ASessionThatWasEndedCostsOneStatementAndOneLine) {
    const std::string text = server.fresh("minimal", root);
    nameServer(text);
    ASSERT_TRUE(start());
    const std::size_t before = history().size();
    endSessions(text);
    EXPECT_FALSE(executeSql("INSERT INTO M部門 (コード,名称) VALUES ('991','一')", true));
    ASSERT_EQ(history().size(), before + 1);
    EXPECT_TRUE(history()[before].starts_with("エラー ")) << history()[before];
    EXPECT_TRUE(history()[before].ends_with("INSERT INTO M部門 (コード,名称) VALUES (''991'',''一'')"))
        << history()[before];
    EXPECT_TRUE(executeSql("INSERT INTO M部門 (コード,名称) VALUES ('992','二')", false));
    database::RecordSet slot;
    EXPECT_FALSE(openRecordset(slot, "SELECT * FROM M部門 WHERE コード = '991'", false))
        << "the lost one was sent again";
    EXPECT_TRUE(openRecordset(slot, "SELECT * FROM M部門 WHERE コード = '992'", false));
}

TEST_F(ServerTrouble, AServerThatStaysAwayFailsEachStatementAndIsFoundWhenItIsBack) {
    const std::string text = server.fresh("minimal", root);
    nameServer(text);
    ASSERT_TRUE(start());
    const std::string name = database::serverPlace(text).database, aside = name + " aside";
    auto keeper = database::openConnection(test::testServer(), database::Role::beside);
    ASSERT_TRUE(keeper);
    endSessions(text);
    const auto rename = [&](const std::string& from, const std::string& to) {
        return bool(keeper.value().executeNative("ALTER DATABASE \"" + from + "\" RENAME TO \"" + to + "\""));
    };
    ASSERT_TRUE(rename(name, aside));
    database::RecordSet slot;
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(openRecordset(slot, "SELECT * FROM Mユーザ", false));
    ASSERT_TRUE(rename(aside, name));
    EXPECT_TRUE(openRecordset(slot, "SELECT * FROM Mユーザ", false));
}

} // namespace
} // namespace kestrel
