#include "setup/tables.hpp"

#include "installations.hpp"

#include <algorithm>

namespace kestrel::setup {

class TablesTest : public Installations {
protected:
    const char* fileOf(const Table& table) { return table.database == "main" ? mainFile : localFile; }
    // The engine's own words on how it goes about a read of the main database, one line a step.
    static std::string planOf(const std::string& root, const std::string& sql) {
        std::string plan;
        for (const Row& row : rowsIn(root, mainFile, "EXPLAIN QUERY PLAN " + sql))
            plan += row.get("detail").value_or("") + "\n";
        return plan;
    }
};

TEST_F(TablesTest, everyColumnOfTheDefinitionStandsInTheDatabaseInItsOrder) {
    const std::string root = make("a", What::minimal);
    for (const Table& table : tables()) {
        std::vector<std::string> expected;
        for (const Column& column : table.columns) expected.push_back(column.name);
        auto store = openStore(root + "/" + fileOf(table));
        ASSERT_TRUE(store);
        const auto found = columnNames(store.value(), table.name);
        ASSERT_TRUE(found) << table.name;
        EXPECT_EQ(found.value(), expected) << table.name;
    }
}

TEST_F(TablesTest, bothDatabasesHoldTheTablesOfTheSuite) {
    EXPECT_EQ(std::ranges::count(tables(), std::string("main"), &Table::database), 31);
    EXPECT_EQ(std::ranges::count(tables(), std::string("local"), &Table::database), 10);
    EXPECT_EQ(tableNamed("T名簿明細").columns.size(), 41u);
    EXPECT_EQ(tableNamed("営業支援").columns.size(), 28u);
}

TEST_F(TablesTest, aKeyOccursOnceAndIsNeverNull) {
    const std::string main = make("a", What::minimal) + "/" + mainFile;
    const std::string one = "INSERT INTO T名簿 (事業所コード,番号基準日付,名簿No) VALUES ('001','20250331','00000001')";
    EXPECT_TRUE(changeStore(main, {one}));
    EXPECT_FALSE(changeStore(main, {one}));
    EXPECT_TRUE(changeStore(
        main, {"INSERT INTO T名簿 (事業所コード,番号基準日付,名簿No) VALUES ('001','20240331','00000001')"}));
    EXPECT_FALSE(changeStore(main, {"INSERT INTO M部門 (名称) VALUES ('無番')"}));
}

TEST_F(TablesTest, requiredColumnsRefuseNull) {
    const std::string local = make("a", What::minimal) + "/" + localFile;
    EXPECT_FALSE(changeStore(local, {"INSERT INTO データベース定義 (情報種類, dbmw) VALUES ('X','Y')"}));
    EXPECT_FALSE(changeStore(local, {"INSERT INTO データベース定義 (情報種類, db) VALUES ('X','A')"}));
    EXPECT_TRUE(changeStore(local, {"INSERT INTO データベース定義 (情報種類, db, dbmw) VALUES ('X','A','Y')"}));
}

TEST_F(TablesTest, indexedColumnsAndTablesWithoutKeyMayRepeat) {
    const std::string root = make("a", What::minimal);
    const std::string town = "INSERT INTO M郵便番号 (郵便番号) VALUES ('100-0001')";
    EXPECT_TRUE(changeStore(root + "/" + mainFile, {town, town}));
    const std::string line = "INSERT INTO プログラム稼動履歴 (摘要) VALUES ('終了')";
    EXPECT_TRUE(changeStore(root + "/" + localFile, {line, line}));
}

TEST_F(TablesTest, generatedColumnsJoinTheThreeLinesWithNullAsEmpty) {
    const std::string root = make("a", What::minimal);
    change(root, mainFile,
           "INSERT INTO T名簿明細 (事業所コード,番号基準日付,名簿No,名簿宛先No,宛先名称A,宛先名称C,宛先住所B) "
           "VALUES ('001','20250331','00000001','000001','甲',' 乙','丙')");
    EXPECT_EQ(valueIn(root, mainFile, "SELECT 宛先名称 FROM T名簿明細"), "甲 乙");
    EXPECT_EQ(valueIn(root, mainFile, "SELECT 宛先住所 FROM T名簿明細"), "丙");
}

TEST_F(TablesTest, textComparesByCodePoint) {
    const std::string root = make("a", What::minimal);
    EXPECT_EQ(valueIn(root, mainFile, "SELECT COUNT(*) AS n FROM M担当者 WHERE ログインID = 'YAMADA'"), "0");
    EXPECT_EQ(valueIn(root, mainFile, "SELECT COUNT(*) AS n FROM M担当者 WHERE カナ > '一'"), "1");
}

TEST_F(TablesTest, rostersAreReadInTheOrderOfTheirDateWithoutSorting) {
    const std::string plan =
        planOf(make("a", What::full), "SELECT 番号基準日付,名簿No FROM T名簿 WHERE 事業所コード = '001' "
                                      "AND 名簿日付 >= '20240401' ORDER BY 名簿日付, 名簿No");
    EXPECT_NE(plan.find("T名簿_名簿日付順"), std::string::npos) << plan;
    EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << plan;
}

TEST_F(TablesTest, telephonesOfContactPersonsAreFoundInTheIndexAlone) {
    const std::string root = make("a", What::full);
    for (const std::string partner : {"得意先", "納品先", "仕入先", "メーカ"}) {
        const std::string contacts = "M" + partner + "御担当者";
        const std::string plan =
            planOf(root, "SELECT コード FROM M" + partner + " WHERE EXISTS (SELECT * FROM " + contacts + " WHERE " +
                             partner + "コード = M" + partner + ".コード AND 電話番号 LIKE '%0312%')");
        EXPECT_NE(plan.find("SEARCH " + contacts + " USING COVERING INDEX"), std::string::npos) << plan;
    }
}

TEST_F(TablesTest, aRowWithAnUnknownColumnIsRefused) {
    EXPECT_THROW(insertStatements("main", {{"M部門", {{"コード", "009"}, {"名前", "誤記"}}}}), std::logic_error);
}

} // namespace kestrel::setup
