#include "setup/main_database.hpp"

#include "installations.hpp"
#include "platform/database/files.hpp"

namespace kestrel::setup {

class MainDatabaseTest : public Installations {
protected:
    Connection emptyStore() {
        EXPECT_TRUE(database::createDatabase(at("main.accdb")));
        auto store = openStore(at("main.accdb"));
        EXPECT_TRUE(store);
        return std::move(store.value());
    }
    static std::vector<std::string> tablesIn(Connection& store) {
        auto names = presentTables(store);
        EXPECT_TRUE(names);
        return names ? names.value() : std::vector<std::string>{"unreadable"};
    }
};

const Row section{"Mセクション", {{"コード", "001"}, {"名称", "第一課"}}};

TEST_F(MainDatabaseTest, makesTheTablesAndPutsTheRowsIn) {
    Connection store = emptyStore();
    ASSERT_TRUE(fillMainDatabase(store, {section, {"営業支援", {{"プログラムID", "連絡台帳入力"}}}}));
    EXPECT_EQ(tablesIn(store).size(), 31u);
    EXPECT_EQ(ownTables(store).value().size(), 31u);
    const auto rows = readRows(store, "SELECT * FROM Mセクション");
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows.value().size(), 1u);
    EXPECT_EQ(rows.value()[0].get("名称"), "第一課");
    EXPECT_EQ(rows.value()[0].get("稼動状況区分"), std::nullopt);
}

TEST_F(MainDatabaseTest, touchesNothingWhereOneOfTheTablesIsThere) {
    Connection store = emptyStore();
    ASSERT_TRUE(store.executeNative("CREATE TABLE T閲覧 (もの TEXT)"));
    const Status status = fillMainDatabase(store, {section});
    ASSERT_FALSE(status);
    EXPECT_EQ(status.failure().description, "the database already has the table T閲覧; nothing was changed");
    EXPECT_EQ(tablesIn(store), std::vector<std::string>{"T閲覧"});
}

TEST_F(MainDatabaseTest, standsBesideOtherTables) {
    Connection store = emptyStore();
    ASSERT_TRUE(store.executeNative("CREATE TABLE 別業務 (もの TEXT)"));
    EXPECT_TRUE(fillMainDatabase(store, {section}));
    EXPECT_EQ(tablesIn(store).size(), 32u);
}

TEST_F(MainDatabaseTest, whatFailsMidwayLeavesNoTable) {
    Connection store = emptyStore();
    EXPECT_FALSE(fillMainDatabase(store, {section, section}));
    EXPECT_EQ(tablesIn(store), std::vector<std::string>{});
}

TEST_F(MainDatabaseTest, tablesAreTakenAwayByName) {
    Connection store = emptyStore();
    ASSERT_TRUE(fillMainDatabase(store, {section}));
    ASSERT_TRUE(dropTables(store, ownTables(store).value()));
    EXPECT_EQ(tablesIn(store), std::vector<std::string>{});
    EXPECT_FALSE(dropTables(store, {"T名簿"}));
}

} // namespace kestrel::setup
