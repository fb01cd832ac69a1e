#include "../server.hpp"

#include "platform/database/server_databases.hpp"

#include <unistd.h>

namespace kestrel::test {

using database::Connection;
using database::serverPlace;
using database::withDatabase;

namespace {

TEST(ServerPlace, IsCutFromTheConnectionText) {
    struct {
        const char *text, *host, *database;
    } const cases[] = {
        {"Provider=P;Data Source=srv;Initial Catalog=sales;", "srv", "sales"},
        {"Provider=P;Data Source=srv:5433/sales;", "srv:5433", "sales"},
        {"Provider=P;Data Source=/run/pg:5433/sales;", "/run/pg:5433", "sales"},
        {"Provider=P;Data Source=/run/pg:5433;Initial Catalog=sales;", "/run/pg:5433", "sales"},
        {"Provider=P;Data Source=/run/pg;Initial Catalog=;", "/run", "pg"},
        {"Provider=P;Data Source=srv;", "srv", ""},
        {"Provider=P;", "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(serverPlace(c.text).host, c.host) << c.text;
        EXPECT_EQ(serverPlace(c.text).database, c.database) << c.text;
    }
}

TEST(ServerPlace, AnotherDatabaseKeepsServerAndUser) {
    EXPECT_EQ(withDatabase("Data Source=/run/pg:5433/a;Password=p;User ID=u;Provider=P", "営業"),
              "Provider=P;User ID=u;Password=p;Data Source=/run/pg:5433/営業;");
    EXPECT_EQ(withDatabase("Provider=P;User ID=u;Password=p;Data Source=srv;Initial Catalog=a;", "b"),
              "Provider=P;User ID=u;Password=p;Data Source=srv;Initial Catalog=b;");
    EXPECT_EQ(withDatabase("Provider=P;User ID=u;Password='a;\"b ';Data Source=srv/a;", "b"),
              "Provider=P;User ID=u;Password=\"a;\"\"b \";Data Source=srv/b;");
}

class ServerDatabases : public testing::Test {
protected:
    void SetUp() override {
        KESTREL_NEEDS_SERVER();
        server = opened(testServer());
        for (const std::string& name : {first, second})
            ASSERT_TRUE(database::dropServerDatabase(server, name)) << "left by an earlier run";
    }
    void TearDown() override {
        for (const std::string& name : {first, second}) {
            if (server.isOpen()) (void)database::dropServerDatabase(server, name);
        }
    }

    static Connection opened(const std::string& text) {
        auto connection = database::openConnection(text, database::Role::beside);
        EXPECT_TRUE(connection) << (connection ? "" : connection.failure().description);
        return connection ? std::move(connection.value()) : Connection();
    }
    static std::string valueOf(Connection& connection, const std::string& sql) {
        auto rows = connection.openNative(sql);
        EXPECT_TRUE(rows) << (rows ? "" : rows.failure().description);
        return rows ? rows.value().text(rows.value().columnName(0)) : "";
    }

    const std::string first = "unit 試験 \"一\" " + std::to_string(getpid()), second = first + " copy";
    Connection server;
};

TEST_F(ServerDatabases, AreMadeCopiedAndDropped) {
    ASSERT_TRUE(database::createServerDatabase(server, first));
    {
        Connection made = opened(withDatabase(testServer(), first));
        ASSERT_TRUE(made.executeNative("CREATE TABLE t (a text)"));
        ASSERT_TRUE(made.executeNative("INSERT INTO t VALUES ('青')"));
    }
    const auto cloned = database::cloneServerDatabase(server, first, second);
    ASSERT_TRUE(cloned) << cloned.failure().description;
    Connection copy = opened(withDatabase(testServer(), second));
    EXPECT_EQ(valueOf(copy, "SELECT a FROM t"), "青");
    EXPECT_TRUE(database::dropServerDatabase(server, second)) << "though somebody is in it";
    EXPECT_FALSE(database::openConnection(withDatabase(testServer(), second), database::Role::beside));
    EXPECT_TRUE(database::dropServerDatabase(server, second)) << "nothing to do";
}

TEST_F(ServerDatabases, CompareTextByCodePoint) {
    ASSERT_TRUE(database::createServerDatabase(server, first));
    Connection made = opened(withDatabase(testServer(), first));
    EXPECT_EQ(valueOf(made, "SELECT 'Z' < 'a' AND 'z' < '亜' AND '亜' < 'ｱ' AND 'ｱ' < '𠮷'"), "1");
    EXPECT_FALSE(database::createServerDatabase(server, first)) << "it is there already";
    EXPECT_FALSE(database::cloneServerDatabase(server, second, first + "x")) << "there is nothing to copy";
}

TEST(ServerDatabasesOfAFile, AreRefused) {
    Connection none;
    EXPECT_FALSE(database::createServerDatabase(none, "a"));
    EXPECT_FALSE(database::cloneServerDatabase(none, "a", "b"));
    EXPECT_FALSE(database::dropServerDatabase(none, "a"));
}

} // namespace

} // namespace kestrel::test
