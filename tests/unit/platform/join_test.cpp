// Each form of join, as rewritten, against what the engine itself makes of RIGHT JOIN.
#include "scratch.hpp"

#include "platform/database/rewriter.hpp"

#include <algorithm>
#include <sqlite3.h>

namespace kestrel::test {

namespace {

// The engine's own answer to the very text, past the rewriter.
std::vector<std::string> ownAnswer(const std::string& path, const std::string& sql) {
    sqlite3* handle = nullptr;
    sqlite3_stmt* statement = nullptr;
    sqlite3_open(path.c_str(), &handle);
    EXPECT_EQ(sqlite3_prepare_v2(handle, sql.c_str(), -1, &statement, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
    std::vector<std::string> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        std::string row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            auto text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
            row += std::string(i ? "|" : "") + (text ? text : "~");
        }
        rows.push_back(row);
    }
    sqlite3_finalize(statement);
    sqlite3_close(handle);
    return rows;
}

class Joins : public testing::Test {
protected:
    Scratch scratch;
    std::string path = scratch.path("joins.db");
    database::Connection connection = newDatabase(path);

    void SetUp() override {
        ASSERT_GE(sqlite3_libversion_number(), 3039000) << "this engine knows no RIGHT JOIN to compare with";
        for (const char* table : {"M事業所", "M部門", "Mセクション"})
            run(connection, {std::string("CREATE TABLE ") + table + " (コード TEXT, 名称 TEXT)"});
        run(connection, {"CREATE TABLE M担当者 (コード TEXT, 氏名 TEXT, 事業所コード TEXT, 部門コード TEXT, "
                         "セクションコード TEXT, 在籍区分 TEXT)",
                         "CREATE TABLE T名簿 (名簿No TEXT, 担当者コード TEXT, 部門コード TEXT, セクションコード TEXT)",
                         "INSERT INTO M事業所 VALUES ('000', '全社'), ('001', '本社')",
                         "INSERT INTO M部門 VALUES ('001', '営業部'), ('002', NULL), ('009', '余り')",
                         "INSERT INTO Mセクション VALUES ('001', '第一課'), ('001', '同じ番号')",
                         "INSERT INTO M担当者 VALUES ('00001', '山田', '000', '001', '001', '0'), "
                         "('00002', 'O''Neil', '001', '777', NULL, '1'), ('00003', NULL, NULL, '002', '999', '0')",
                         "INSERT INTO T名簿 VALUES ('1', '00001', '001', '001'), ('2', '99999', '002', NULL), "
                         "('3', NULL, '555', '001'), ('4', '00003', NULL, '002')"});
    }

    // The same rows, whatever their order, from the program's text and from the engine's own RIGHT JOIN.
    void expectSame(const std::string& sql, const std::string& own) {
        auto rows = query(connection, sql), expected = ownAnswer(path, own);
        std::ranges::sort(rows);
        std::ranges::sort(expected);
        EXPECT_FALSE(expected.empty());
        EXPECT_EQ(rows, expected) << database::rewrite(sql, database::Dialect::sqlite);
    }
};

const std::string rosterColumns =
    "SELECT T名簿.*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 AS セクション名";
const std::string rosterJoin = " FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 RIGHT JOIN T名簿 ON "
                               "M担当者.コード = T名簿.担当者コード) ON M部門.コード = "
                               "T名簿.部門コード) ON Mセクション.コード = T名簿.セクションコード";
const std::string staffColumns =
    " M担当者.コード,M担当者.氏名,M事業所.名称 AS 事業所名,M部門.名称 AS 部門名,Mセクション.名称 AS セクション名";
const std::string staffJoin = " FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M事業所 RIGHT JOIN M担当者 ON "
                              "M事業所.コード = M担当者.事業所コード) ON M部門.コード = "
                              "M担当者.部門コード) ON Mセクション.コード = M担当者.セクションコード";
const std::string staffMarks = " FROM Mセクション,M部門,M事業所,M担当者 WHERE M事業所.コード(+) = M担当者.事業所コード "
                               "AND M部門.コード(+) = M担当者.部門コード AND "
                               "Mセクション.コード(+) = M担当者.セクションコード";

TEST_F(Joins, nestedRightJoin) {
    expectSame(rosterColumns + rosterJoin, rosterColumns + rosterJoin);
    std::string condition = " WHERE T名簿.名簿No >= '2' AND M部門.名称 IS NULL";
    expectSame(rosterColumns + rosterJoin + condition, rosterColumns + rosterJoin + condition);
}

TEST_F(Joins, singleRightJoin) {
    std::string sql = "SELECT T名簿.名簿No, M担当者.氏名 AS 担当者名 FROM M担当者 RIGHT JOIN T名簿 ON M担当者.コード = "
                      "T名簿.担当者コード";
    expectSame(sql, sql);
}

TEST_F(Joins, rightJoinOverInnerJoin) {
    std::string sql = "SELECT T名簿.名簿No, M担当者.氏名, M部門.名称 FROM M部門 RIGHT JOIN (T名簿 INNER JOIN M担当者 "
                      "ON M担当者.コード = "
                      "T名簿.担当者コード) ON M部門.コード = M担当者.部門コード";
    expectSame(sql, sql);
}

TEST_F(Joins, rightJoinThatPassesOnUnchanged) {
    std::string sql = "SELECT M担当者.氏名, M部門.名称, T名簿.名簿No FROM M担当者 INNER JOIN M部門 ON M部門.コード = "
                      "M担当者.部門コード "
                      "RIGHT JOIN T名簿 ON T名簿.担当者コード = M担当者.コード";
    expectSame(sql, sql);
}

TEST_F(Joins, marks) {
    expectSame("SELECT TOP 1000" + staffColumns + staffMarks, "SELECT" + staffColumns + staffJoin);
    expectSame("SELECT TOP 1000" + staffColumns + staffMarks + " AND (M担当者.在籍区分 = '0' OR M部門.名称 IS NULL)",
               "SELECT" + staffColumns + staffJoin + " WHERE (M担当者.在籍区分 = '0' OR M部門.名称 IS NULL)");
    expectSame("SELECT" + staffColumns + staffMarks +
                   " AND M部門.名称 NOT LIKE '%余%' AND NOT EXISTS (SELECT * FROM T名簿 WHERE "
                   "担当者コード = M担当者.コード AND 部門コード LIKE '%9%')",
               "SELECT" + staffColumns + staffJoin +
                   " WHERE M部門.名称 NOT LIKE '%余%' AND NOT EXISTS (SELECT * FROM T名簿 WHERE 担当者コード = "
                   "M担当者.コード AND "
                   "部門コード LIKE '%9%')");
}

TEST_F(Joins, columnNamesArePlain) {
    auto set = connection.open(rosterColumns + rosterJoin);
    ASSERT_TRUE(set) << set.failure().description;
    std::vector<std::string> names;
    for (int i = 0; i < set.value().columnCount(); ++i) names.push_back(set.value().columnName(i));
    EXPECT_EQ(names, (std::vector<std::string>{"名簿No", "担当者コード", "部門コード", "セクションコード", "担当者名",
                                               "部門名", "セクション名"}));
}

TEST_F(Joins, wrongStatementsFailInTheEngine) {
    EXPECT_FALSE(connection.open("SELECT" + staffColumns + staffMarks + " WHERE M担当者.コード = '00001'"));
    EXPECT_FALSE(connection.open("SELECT" + staffColumns + staffMarks + " OR M担当者.コード = '00001'"));
    EXPECT_FALSE(connection.open(rosterColumns + rosterJoin + " WHERE T名簿.名簿No = '1' WHERE T名簿.名簿No = '2'"));
}

TEST_F(Joins, aColumnNameThatTheEngineMadeUpFailsLoudly) {
    EXPECT_FALSE(connection.open("SELECT * FROM M部門 LEFT JOIN (Mセクション LEFT JOIN M事業所 ON 1) ON 1"));
    auto set = connection.open("SELECT 名称 AS \"コード:2\" FROM M部門");
    ASSERT_FALSE(set);
    EXPECT_NE(set.failure().description.find("コード:2"), std::string::npos);
    EXPECT_TRUE(connection.open("SELECT 名称 AS \"a:\", 名称 AS \"b:2c\", 名称 AS \":x\" FROM M部門"));
}

} // namespace

} // namespace kestrel::test
