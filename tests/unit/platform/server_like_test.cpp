// Where a search by a word, and an order, on a server is the embedded engine's, and where the server goes its own way.
#include "../server.hpp"

#include "scratch.hpp"

namespace kestrel::test {

namespace {

class ServerLike : public testing::Test {
protected:
    Scratch scratch;
    database::Connection file = newDatabase(scratch.path("a.db"));
    database::Connection server;

    void SetUp() override {
        KESTREL_NEEDS_SERVER();
        auto opened = database::openConnection(testServer(), database::Role::beside);
        ASSERT_TRUE(opened);
        server = std::move(opened.value());
        ASSERT_TRUE(file.execute("CREATE TABLE 語 (Word text)"));
        (void)server.executeNative("DROP TABLE \"語\"");
        ASSERT_TRUE(server.executeNative("CREATE TABLE \"語\" (\"Word\" text)"));
    }
    void TearDown() override {
        if (server.isOpen()) (void)server.executeNative("DROP TABLE \"語\"");
    }
    static bool finds(database::Connection& connection, const std::string& word, const std::string& pattern) {
        EXPECT_TRUE(connection.execute("DELETE FROM 語"));
        EXPECT_TRUE(connection.execute("INSERT INTO 語 (Word) VALUES ('" + word + "')"));
        auto found = connection.open("SELECT Word FROM 語 WHERE Word LIKE '" + pattern + "'");
        EXPECT_TRUE(found) << pattern;
        return found && !found.value().eof();
    }
};

TEST_F(ServerLike, agreesOnWildcardsBackslashesAndAsciiCase) {
    const std::string words[] = {"ab", "AB", "a\\b", "a%b", "a_b", "[ab]", "青葉", "青葉\\", "", "ｱﾊﾞ", "アバ"};
    const std::string patterns[] = {"%AB%", "a\\%", "%\\", "a_b", "%[a%", "%青%",
                                    "青_",  "%",    "",    "%ｱ%", "%ア%", "a\\_b"};
    for (const std::string& word : words)
        for (const std::string& pattern : patterns)
            EXPECT_EQ(finds(server, word, pattern), finds(file, word, pattern)) << word << " LIKE " << pattern;
}

TEST_F(ServerLike, goesItsOwnWayOnLetterCaseBeyondAscii) {
    for (const auto& [word, pattern] : {std::pair("ａｂ", "%Ａ%"), std::pair("É", "é")}) {
        EXPECT_TRUE(finds(server, word, pattern));
        EXPECT_FALSE(finds(file, word, pattern));
    }
}

std::string wordsInOrder(database::Connection& connection, const std::string& order) {
    auto found = connection.open("SELECT TOP 3 Word FROM 語 ORDER BY " + order);
    EXPECT_TRUE(found) << order;
    std::string words;
    for (; found && !found.value().eof(); found.value().moveNext())
        words += found.value().textOrNull("Word").value_or("NULL") + " ";
    return words;
}

TEST_F(ServerLike, nullsStandInFrontOfTheSmallest) {
    for (database::Connection* connection : {&file, &server}) {
        ASSERT_TRUE(connection->execute("INSERT INTO 語 (Word) VALUES ('b'),(NULL),('A'),(''),('𠮷'),('ｱ')"));
        EXPECT_EQ(wordsInOrder(*connection, "Word"), "NULL  A ");
        EXPECT_EQ(wordsInOrder(*connection, "語.Word DESC"), "𠮷 ｱ b ");
        ASSERT_TRUE(connection->execute("DELETE FROM 語 WHERE Word > 'B'"));
        EXPECT_EQ(wordsInOrder(*connection, "Word DESC"), "A  NULL ");
    }
}

} // namespace
} // namespace kestrel::test
