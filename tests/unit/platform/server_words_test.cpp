// What a server is told when a session or a draw begins, for those that no test reaches.
#include "platform/database/server_words.hpp"

#include "platform/database/dialect_words.hpp"

#include <gtest/gtest.h>

namespace kestrel::database {

namespace {

TEST(ServerWordsTest, theFamilyFollowsTheServersName) {
    EXPECT_EQ(serverWords("PostgreSQL").dialect, Dialect::postgresql);
    EXPECT_EQ(serverWords("Microsoft SQL Server").dialect, Dialect::sqlServer);
    EXPECT_EQ(serverWords("oracle").dialect, Dialect::oracle);
    EXPECT_EQ(serverWords("MariaDB").dialect, Dialect::mariadb);
    EXPECT_EQ(serverWords("Something else").dialect, Dialect::postgresql);
}

struct Told {
    const char* server;
    const char* draw;  // when told to wait for 7 seconds
    const char* after; // when the draw has ended
};

constexpr Told told[] = {
    {"PostgreSQL", "SELECT pg_advisory_xact_lock(hashtext('number registers'))", ""},
    {"Microsoft SQL Server",
     "SET NOCOUNT ON; DECLARE @taken int; EXEC @taken = sp_getapplock @Resource = 'number registers', @LockMode = "
     "'Exclusive', @LockOwner = 'Session', @LockTimeout = 7000; SELECT CASE WHEN @taken < 0 THEN 0 ELSE 1 END",
     "EXEC sp_releaseapplock @Resource = 'number registers', @LockOwner = 'Session'"},
    {"Oracle", "LOCK TABLE \"A番号情報\" IN EXCLUSIVE MODE WAIT 7", ""},
    {"MariaDB", "SELECT COALESCE(GET_LOCK('number registers', 7), 0)", "SELECT RELEASE_LOCK('number registers')"},
};

TEST(ServerWordsTest, aDrawKeepsOthersAwayAndWaitsNoLongerThanTold) {
    for (const Told& one : told) {
        const ServerWords& words = serverWords(one.server);
        ASSERT_EQ(words.draw.size(), 1u) << one.server;
        EXPECT_EQ(filledWords(words.draw.front(), 7, 30), one.draw);
        EXPECT_EQ(words.afterDraw, one.after) << one.server;
    }
}

// 0 would mean for ever on one server and not at all on another.
TEST(ServerWordsTest, noWaitIsTheShortestOne) {
    EXPECT_EQ(filledWords("{waiting} {seconds} {running}", 0, 0), "1 1 0");
    EXPECT_EQ(filledWords("{waiting} {seconds} {running} {waiting}", 60, 30000), "60000 60 30000000 60000");
}

// Where words about nulls are written into an order, who writes has to know the columns that have none.
TEST(ServerWordsTest, requiredColumnsAreAskedForWhereNullsSortAsTheGreatest) {
    for (const char* server : {"PostgreSQL", "Microsoft SQL Server", "Oracle", "MariaDB"}) {
        const ServerWords& words = serverWords(server);
        EXPECT_EQ(!words.requiredColumns.empty(), wordsOf(words.dialect).sortsNullsAsGreatest) << server;
    }
}

} // namespace

} // namespace kestrel::database
