#include "scratch.hpp"

#include "platform/database/faults.hpp"

namespace kestrel::test {

namespace {

class DrawTest : public testing::Test {
protected:
    DrawTest() { run(connection, {"CREATE TABLE t (a TEXT PRIMARY KEY)", "INSERT INTO t VALUES ('1')"}); }
    void TearDown() override { database::limitWaiting(0); }

    int count() {
        auto other = connect(scratch.path("a.accdb"));
        auto rows = other.open("SELECT COUNT(*) AS n FROM t");
        return rows ? std::stoi(rows.value().text("n")) : -1;
    }
    Scratch scratch;
    database::Connection connection = newDatabase(scratch.path("a.accdb"));
};

TEST_F(DrawTest, isSeenByOthersWhenItHasEnded) {
    ASSERT_TRUE(connection.beginDraw());
    EXPECT_TRUE(connection.execute("INSERT INTO t VALUES ('2')"));
    EXPECT_EQ(count(), 1);
    EXPECT_TRUE(connection.endDraw(true));
    EXPECT_EQ(count(), 2);
}

TEST_F(DrawTest, goesBackWhenItIsNotKept) {
    ASSERT_TRUE(connection.beginDraw());
    EXPECT_TRUE(connection.execute("INSERT INTO t VALUES ('2')"));
    EXPECT_TRUE(connection.endDraw(false));
    EXPECT_EQ(count(), 1);
}

TEST_F(DrawTest, isNotSpoiledByAStatementThatFails) {
    ASSERT_TRUE(connection.beginDraw());
    EXPECT_TRUE(connection.execute("INSERT INTO t VALUES ('2')"));
    EXPECT_FALSE(connection.execute("INSERT INTO t VALUES ('2')"));
    EXPECT_FALSE(connection.open("SELECT * FROM nobody"));
    EXPECT_TRUE(connection.endDraw(true));
    EXPECT_EQ(count(), 2);
}

TEST_F(DrawTest, keepsOthersFromWriting) {
    auto other = connect(scratch.path("a.accdb"));
    ASSERT_TRUE(connection.beginDraw());
    database::limitWaiting(1);
    EXPECT_FALSE(other.execute("INSERT INTO t VALUES ('3')"));
    EXPECT_FALSE(other.beginDraw());
    EXPECT_TRUE(connection.endDraw(true));
    EXPECT_TRUE(other.beginDraw());
    EXPECT_TRUE(other.endDraw(true));
}

TEST_F(DrawTest, mayBeginWhileARowIsRead) {
    auto rows = connection.open("SELECT a FROM t");
    ASSERT_TRUE(rows);
    EXPECT_TRUE(connection.beginDraw());
    EXPECT_TRUE(connection.execute("UPDATE t SET a = '9'"));
    EXPECT_EQ(rows.value().text("a"), "1");
    EXPECT_TRUE(connection.endDraw(true));
}

TEST_F(DrawTest, needsAnOpenConnectionAndDoesNotNest) {
    database::Connection closed;
    EXPECT_FALSE(closed.beginDraw());
    EXPECT_FALSE(closed.endDraw(true));
    ASSERT_TRUE(connection.beginDraw());
    EXPECT_FALSE(connection.beginDraw());
    EXPECT_TRUE(connection.endDraw(true));
    EXPECT_FALSE(connection.endDraw(true));
    EXPECT_TRUE(connection.endDraw(false));
}

} // namespace

} // namespace kestrel::test
