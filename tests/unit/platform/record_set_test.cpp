#include "scratch.hpp"

#include "platform/clock.hpp"

#include <functional>

namespace kestrel::test {

using database::DatabaseError;
using database::RecordSet;

namespace {

class Records : public testing::Test {
protected:
    Scratch scratch;
    std::string path = scratch.path("a.db");
    database::Connection connection = newDatabase(path);

    void SetUp() override {
        run(connection, {"CREATE TABLE a (コード TEXT, Name TEXT, n INTEGER)",
                         "INSERT INTO a VALUES ('1', 'x', 10), ('2', NULL, -5), ('3', '', NULL)"});
    }
    RecordSet open(const std::string& sql) {
        auto set = connection.open(sql);
        if (!set) throw std::runtime_error(set.failure().description);
        return std::move(set.value());
    }
};

std::string raised(const std::function<void()>& step) {
    try {
        step();
    } catch (const DatabaseError& error) {
        return error.what();
    }
    return "nothing";
}

TEST_F(Records, areReadForward) {
    auto set = open("SELECT コード, Name FROM a ORDER BY コード");
    EXPECT_FALSE(set.bof());
    EXPECT_FALSE(set.eof());
    EXPECT_EQ(rowsOf(set), (std::vector<std::string>{"1|x", "2|~", "3|"}));
    EXPECT_TRUE(set.eof());
    EXPECT_FALSE(set.bof());
    set.moveNext();
    EXPECT_TRUE(set.eof());
}

TEST_F(Records, areAtBothEndsWhenThereIsNone) {
    auto set = open("SELECT コード FROM a WHERE コード = '9'");
    EXPECT_TRUE(set.bof());
    EXPECT_TRUE(set.eof());
    EXPECT_EQ(set.columnCount(), 1);
    EXPECT_EQ(set.columnName(0), "コード");
}

TEST_F(Records, neverOpenedAreAtTheirEndAndCloseHarmlessly) {
    RecordSet set;
    set.close();
    set.moveNext();
    EXPECT_TRUE(set.bof() && set.eof());
    EXPECT_EQ(set.columnCount(), 0);
    EXPECT_EQ(set.columnName(0), "");
    EXPECT_EQ(raised([&] { set.text("コード"); }), "there is no row to read コード from");
}

TEST_F(Records, answerColumnsByName) {
    auto set = open("SELECT コード, Name, n, コード AS x, Name AS X FROM a WHERE コード = '1'");
    EXPECT_EQ(set.text("コード"), "1");
    EXPECT_EQ(set.text("NAME"), "x") << "ASCII letters in either case";
    EXPECT_EQ(set.text("n"), "10") << "numbers come as text";
    EXPECT_EQ(set.text("X"), "1") << "the first of two that are the same";
    EXPECT_EQ(raised([&] { set.text("ｎ"); }), "there is no column ｎ");
    EXPECT_EQ(raised([&] { set.textOrNull("missing"); }), "there is no column missing");
    EXPECT_EQ(raised([&] { set.text("missing", ""); }), "there is no column missing");
}

TEST_F(Records, answerColumnsByTheirPlaceFoundOnce) {
    auto set = open("SELECT コード, Name, n FROM a ORDER BY コード");
    const int name = set.columnIndex("NAME"), n = set.columnIndex("n");
    EXPECT_EQ(set.view(name), "x");
    EXPECT_EQ(set.view(n), "10");
    run(connection, {"DELETE FROM a"}); // what is left was fetched before
    set.moveNext();
    EXPECT_EQ(set.view(name), std::nullopt);
    EXPECT_EQ(set.view(n), "-5");
    EXPECT_NE(raised([&] { set.columnIndex("名称"); }).find("名称"), std::string::npos);
    set.close();
    EXPECT_NE(raised([&] { set.columnIndex("n"); }), "nothing");
    EXPECT_NE(raised([&] { set.view(n); }), "nothing");
}

TEST_F(Records, raiseANullWithoutADefault) {
    auto set = open("SELECT * FROM a WHERE コード = '2'");
    EXPECT_EQ(raised([&] { set.text("Name"); }), "the column Name is null");
    EXPECT_EQ(set.text("Name", "000"), "000");
    EXPECT_EQ(set.textOrNull("Name"), std::nullopt);
    EXPECT_EQ(set.textOrNull("n"), "-5");
    set = open("SELECT * FROM a WHERE コード = '3'");
    EXPECT_EQ(set.text("Name"), "") << "empty is not null";
    EXPECT_EQ(set.text("Name", "000"), "");
}

TEST_F(Records, keepWhatStandsBehindANulCharacter) {
    auto set = open("SELECT 'a' || char(0) || 'b' AS t");
    EXPECT_EQ(set.text("t"), std::string("a\0b", 3));
}

TEST_F(Records, areGoneAfterClose) {
    auto set = open("SELECT コード FROM a");
    set.close();
    EXPECT_TRUE(set.eof());
    EXPECT_NE(raised([&] { set.text("コード"); }), "nothing");
    set.close();
}

TEST_F(Records, areReplacedByASecondOpening) {
    auto set = open("SELECT コード FROM a ORDER BY コード");
    set = open("SELECT コード FROM a ORDER BY コード DESC");
    EXPECT_EQ(set.text("コード"), "3");
}

TEST_F(Records, areAtTheirEndWhenTheConnectionCloses) {
    auto set = open("SELECT コード FROM a"), kept = open("SELECT コード FROM a");
    connection.close();
    EXPECT_TRUE(set.eof() && kept.eof());
    EXPECT_NE(raised([&] { set.text("コード"); }), "nothing");
    set.moveNext();
    set.close();
    EXPECT_FALSE(std::filesystem::exists(path + "-wal")) << "the file is still open";
}

TEST_F(Records, showTheDatabaseAsItWasAtTheirOpening) {
    auto set = open("SELECT コード FROM a ORDER BY コード");
    run(connection, {"DELETE FROM a WHERE コード = '2'", "INSERT INTO a VALUES ('4', NULL, NULL)"});
    EXPECT_EQ(rowsOf(set), (std::vector<std::string>{"1", "2", "3"}));
}

TEST_F(Records, stayOpenWhileAnotherProcessWritesAndThenThisOne) {
    auto set = open("SELECT コード FROM a ORDER BY コード");
    auto other = connect(path);
    run(other, {"INSERT INTO a VALUES ('5', NULL, NULL)"});
    EXPECT_EQ(query(connection, "SELECT count(*) FROM a"), std::vector<std::string>{"4"}) << "a later read sees it";
    auto later = open("SELECT コード FROM a ORDER BY コード");
    run(other, {"INSERT INTO a VALUES ('6', NULL, NULL)"});
    EXPECT_TRUE(connection.execute("UPDATE a SET n = 1")) << "a later write isn't turned away";
    EXPECT_EQ(rowsOf(later).size(), 4U);
    EXPECT_EQ(rowsOf(set).size(), 3U);
}

TEST_F(Records, canBeMovedInTheMiddle) {
    auto set = open("SELECT コード FROM a ORDER BY コード");
    RecordSet moved = std::move(set);
    run(connection, {"DELETE FROM a"});
    moved.moveNext();
    EXPECT_EQ(moved.text("コード"), "2");
}

TEST_F(Records, raiseAFailureMidway) {
    const char* sql =
        "SELECT CASE コード WHEN '2' THEN abs(-9223372036854775808) ELSE コード END AS v FROM a ORDER BY rowid";
    auto set = open(sql);
    EXPECT_EQ(raised([&] { set.moveNext(); }), "integer overflow");
    EXPECT_TRUE(set.eof());
    auto kept = open(sql);
    run(connection, {"DELETE FROM a WHERE 0"});
    EXPECT_EQ(kept.text("v"), "1");
    EXPECT_EQ(raised([&] { kept.moveNext(); }), "integer overflow") << "told when the reader comes to it";
    EXPECT_TRUE(kept.eof());
    EXPECT_TRUE(connection.execute("DELETE FROM a"));
}

TEST_F(Records, payForTheFirstRowAlone) {
    const std::string many = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n";
    double begin = platform::secondsRunning();
    auto set = open(many);
    EXPECT_EQ(set.text("i"), "1");
    set.close();
    EXPECT_LT(platform::secondsRunning() - begin, 5) << "this result has no end";
}

} // namespace

} // namespace kestrel::test
