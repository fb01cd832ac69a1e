// The same text asked again: its compiled statement is kept, and nothing of an earlier run may be seen in a later one.
#include "scratch.hpp"

namespace kestrel::test {

namespace {

constexpr const char* all = "SELECT * FROM 表 ORDER BY 番号";

class Kept : public testing::Test {
protected:
    Kept() {
        run(connection, {"CREATE TABLE 表 (番号 TEXT, 名称 TEXT)", "INSERT INTO 表 VALUES ('1', '青葉')",
                         "INSERT INTO 表 VALUES ('2', '若葉')"});
        query(connection, all);
    }
    Scratch scratch;
    database::Connection connection = newDatabase(scratch.path("a.accdb"));
};

using Rows = std::vector<std::string>;

} // namespace

TEST_F(Kept, AskedAgainShowsWhatIsThereNow) {
    run(connection, {"UPDATE 表 SET 名称 = '双葉' WHERE 番号 = '1'"});
    EXPECT_EQ(query(connection, all), (Rows{"1|双葉", "2|若葉"}));
}

TEST_F(Kept, TwoOpenAtOnceReadEachForItself) {
    auto first = connection.open(all);
    first.value().moveNext();
    auto second = connection.open(all);
    EXPECT_EQ(rowsOf(second.value()), (Rows{"1|青葉", "2|若葉"}));
    EXPECT_EQ(rowsOf(first.value()), (Rows{"2|若葉"}));
}

TEST_F(Kept, BrokenOffInTheMiddleBeginsAtTheFirstRowAgain) {
    connection.open(all).value().close();
    EXPECT_EQ(query(connection, all), (Rows{"1|青葉", "2|若葉"}));
}

TEST_F(Kept, SeesAColumnThatCameMeanwhile) {
    auto other = connect(scratch.path("a.accdb"));
    run(other, {"ALTER TABLE 表 ADD COLUMN 摘要 TEXT"});
    EXPECT_EQ(query(connection, all), (Rows{"1|青葉|~", "2|若葉|~"}));
    run(connection, {"ALTER TABLE 表 DROP COLUMN 名称"});
    EXPECT_EQ(query(connection, all), (Rows{"1|~", "2|~"}));
}

TEST_F(Kept, FailsWhenItsTableIsGoneAndReadsItsSuccessor) {
    run(connection, {"DROP TABLE 表"});
    EXPECT_FALSE(connection.open(all));
    EXPECT_FALSE(connection.open(all));
    run(connection, {"CREATE TABLE 表 (番号 TEXT)", "INSERT INTO 表 VALUES ('3')"});
    EXPECT_EQ(query(connection, all), (Rows{"3"}));
}

TEST_F(Kept, NoTextIsTakenForAnother) {
    for (int number = 0; number < 100; ++number) {
        const std::string sql = "SELECT '" + std::to_string(number) + "' AS 値";
        EXPECT_EQ(query(connection, sql), (Rows{std::to_string(number)}));
    }
    EXPECT_EQ(query(connection, all), (Rows{"1|青葉", "2|若葉"}));
    EXPECT_FALSE(connection.open(std::string(all) + std::string(1, '\0')));
    EXPECT_FALSE(connection.open(std::string(all) + "; DELETE FROM 表"));
    EXPECT_EQ(query(connection, std::string(all) + "; ").size(), 2u);
    EXPECT_EQ(query(connection, std::string(all) + "; ").size(), 2u);
}

TEST_F(Kept, StandsInNobodysWay) {
    auto other = connect(scratch.path("a.accdb"));
    run(other, {"DROP TABLE 表", "VACUUM"});
    run(connection, {"CREATE TABLE 表 (番号 TEXT)", "DROP TABLE 表"});
}

TEST_F(Kept, OutlivedByItsResultAfterTheConnectionClosed) {
    auto set = connection.open(all);
    connection.close();
    EXPECT_TRUE(set.value().eof());
    connection = connect(scratch.path("a.accdb"));
    EXPECT_EQ(query(connection, all), (Rows{"1|青葉", "2|若葉"}));
}

TEST_F(Kept, WhatAnswersNoRowsIsRefusedEachTimeAndNeverRuns) {
    for (int i = 0; i < 2; ++i) EXPECT_FALSE(connection.open("DELETE FROM 表"));
    EXPECT_EQ(query(connection, all).size(), 2u);
}

// Some answers the engine works out while it compiles.
TEST_F(Kept, ASettingIsReadAnew) {
    query(connection, "PRAGMA cache_size");
    run(connection, {"PRAGMA cache_size=77"});
    EXPECT_EQ(query(connection, "PRAGMA cache_size"), (Rows{"77"}));
}

} // namespace kestrel::test
