// The engine of servers on a real one. KESTREL_TEST_SERVER is its connection text without a database; what is made in
// the user's own database goes with the tests.
#include "platform/database/connection.hpp"
#include "platform/database/odbc_rows.hpp"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>

namespace kestrel::test {

using database::Connection;
using database::DatabaseError;
using database::openConnection;
using database::RecordSet;
using database::Role;

namespace {

class Server : public testing::Test {
protected:
    Connection connection;

    void SetUp() override {
        const char* text = std::getenv("KESTREL_TEST_SERVER");
        if (!text) GTEST_SKIP() << "KESTREL_TEST_SERVER names no server";
        connection = opened(text);
        (void)connection.executeNative("DROP TABLE IF EXISTS \"T表A\", \"T表B\"");
        run("CREATE TABLE \"T表A\" (\"コード\" text PRIMARY KEY, \"NameA\" text, \"数\" numeric)");
    }

    static Connection opened(const std::string& text, Role role = Role::main) {
        auto made = openConnection(text, role);
        if (!made) throw std::runtime_error(made.failure().description);
        return std::move(made.value());
    }
    static Connection another() { return opened(std::getenv("KESTREL_TEST_SERVER"), Role::beside); }

    void run(const std::string& sql) {
        const auto status = connection.executeNative(sql);
        ASSERT_TRUE(status) << status.failure().description;
    }
    RecordSet open(const std::string& sql) {
        auto set = connection.openNative(sql);
        if (!set) throw std::runtime_error(set.failure().description);
        return std::move(set.value());
    }
    std::string value(const std::string& sql) {
        RecordSet set = open(sql);
        return set.eof() ? "none" : set.textOrNull(set.columnName(0)).value_or("NULL");
    }
    std::string failureOf(const std::string& sql) {
        const auto status = connection.executeNative(sql);
        return status ? "none" : status.failure().description;
    }
};

std::string literal(const std::string& text) {
    std::string quoted = "'";
    for (char c : text) quoted.append(c == '\'' ? 2 : 1, c);
    return quoted + "'";
}

// One character of each plane that has any, marks that some server or driver gives a meaning, ends of lines.
const std::string texts[] = {"aあ\xF0\xA0\xAE\xB7\xF0\x9F\x98\x80\xF3\xA0\x84\x80\xF4\x8F\xBF\xBD",
                             "it's ''",
                             "a\\b\\'c\\",
                             "\\x4142",
                             "\\101\\000",
                             "{d '2024-01-01'}",
                             "?:a --x /*",
                             "\t\r\n",
                             "",
                             " x "};

TEST_F(Server, keepsTextsAsTheyAre) {
    for (const std::string& text : texts) {
        run("DELETE FROM \"T表A\"");
        run("INSERT INTO \"T表A\" VALUES ('1', " + literal(text) + ", NULL)");
        EXPECT_EQ(value("SELECT \"NameA\" FROM \"T表A\" WHERE \"NameA\" = " + literal(text)), text);
    }
}

// A server may be told to take a backslash for the beginning of something; a session of ours takes it as it stands.
TEST_F(Server, keepsBackslashesWhateverTheServerIsTold) {
    run("ALTER ROLE kestrel IN DATABASE kestrel SET standard_conforming_strings = off");
    Connection fresh = another();
    EXPECT_EQ(fresh.openNative("SELECT 'a\\nb' AS t").value().text("t"), "a\\nb");
    run("ALTER ROLE kestrel IN DATABASE kestrel RESET standard_conforming_strings");
}

TEST_F(Server, speaksUtf8WhateverTheMachineIsTold) {
    setenv("PGCLIENTENCODING", "EUC_JP", 1);
    Connection fresh = another();
    unsetenv("PGCLIENTENCODING");
    EXPECT_EQ(fresh.openNative("SELECT '亜' AS t, length('亜') AS n").value().text("n"), "1");
    EXPECT_EQ(fresh.openNative("SELECT '亜' AS t").value().text("t"), "亜");
}

TEST_F(Server, answersTextOrNull) {
    run("INSERT INTO \"T表A\" VALUES ('1', NULL, 12.50)");
    RecordSet set = open("SELECT * FROM \"T表A\"");
    EXPECT_FALSE(set.bof());
    EXPECT_EQ(set.text("コード"), "1");
    EXPECT_EQ(set.text("namea", "nothing"), "nothing");
    EXPECT_THROW((void)set.text("NameA"), DatabaseError);
    EXPECT_THROW((void)set.text("NameB"), DatabaseError);
    EXPECT_EQ(set.text("数"), "12.50");
    set.moveNext();
    EXPECT_TRUE(set.eof());
}

TEST_F(Server, givesTheWholeOfALongText) {
    for (std::size_t units : {126, 127, 128, 2047, 2048, 5000}) {
        run("DELETE FROM \"T表A\"");
        std::string text;
        for (std::size_t i = 0; i < units; ++i) text += "漢";
        run("INSERT INTO \"T表A\" VALUES ('1', '" + text + "', 1), ('2', 'short', 2)");
        RecordSet set = open("SELECT * FROM \"T表A\" ORDER BY \"コード\"");
        EXPECT_EQ(set.text("NameA"), text) << units;
        EXPECT_EQ(set.text("数"), "1");
        set.moveNext();
        EXPECT_EQ(set.text("NameA"), "short") << units;
    }
}

void addRows(Connection& connection, int count) {
    ASSERT_TRUE(connection.executeNative("INSERT INTO \"T表A\" SELECT lpad(i::text, 6, '0'), 'n' || i, i FROM "
                                         "generate_series(1, " +
                                         std::to_string(count) + ") i"));
}

int countRows(RecordSet& set) {
    int count = 0;
    for (; !set.eof(); set.moveNext()) ++count;
    return count;
}

TEST_F(Server, readsBlocksToTheirEnd) {
    constexpr int block = static_cast<int>(database::rowsOfBlock);
    for (int count : {1, block - 1, block, block + 1, 3 * block}) {
        run("DELETE FROM \"T表A\"");
        addRows(connection, count);
        RecordSet all = open("SELECT * FROM \"T表A\" ORDER BY 1");
        EXPECT_EQ(countRows(all), count);
        RecordSet limited = open("SELECT * FROM \"T表A\" ORDER BY 1 LIMIT 100000");
        EXPECT_EQ(countRows(limited), count);
    }
}

TEST_F(Server, keepsAnOpenResultAsItWasWhenAnotherStatementRuns) {
    addRows(connection, 2000);
    RecordSet set = open("SELECT * FROM \"T表A\" ORDER BY 1");
    run("DELETE FROM \"T表A\"");
    EXPECT_EQ(value("SELECT count(*) FROM \"T表A\""), "0");
    EXPECT_EQ(another().openNative("SELECT count(*) AS n FROM \"T表A\"").value().text("n"), "0") << "it was kept open";
    EXPECT_EQ(set.text("コード"), "000001");
    EXPECT_EQ(countRows(set), 2000);
}

// Behind the first rows only what was read so far comes with its block; a column that is asked for later is there too.
TEST_F(Server, answersAColumnThatWasNotReadBefore) {
    addRows(connection, 600);
    RecordSet set = open("SELECT * FROM \"T表A\" ORDER BY \"コード\"");
    for (int row = 1; row <= 600; ++row, set.moveNext()) {
        EXPECT_EQ(std::stoi(set.text("コード")), row);
        EXPECT_TRUE(row < 100 || set.text("NameA") == "n" + std::to_string(row)) << row;
        EXPECT_TRUE(row < 599 || set.text("数") == std::to_string(row)) << row;
    }
    EXPECT_TRUE(set.eof());
}

TEST_F(Server, keepsColumnsThatWereNotReadWhenAnotherStatementRuns) {
    addRows(connection, 600);
    RecordSet set = open("SELECT * FROM \"T表A\" ORDER BY \"コード\"");
    for (int row = 1; row < 100; ++row, set.moveNext()) EXPECT_EQ(std::stoi(set.text("コード")), row);
    run("UPDATE \"T表A\" SET \"NameA\" = 'other'");
    for (int row = 100; row <= 600; ++row, set.moveNext()) {
        EXPECT_EQ(std::stoi(set.text("コード")), row);
        EXPECT_EQ(set.text("NameA"), "n" + std::to_string(row));
    }
    EXPECT_TRUE(set.eof());
}

// The bound that keeps a small answer to one trip is nobody's business.
TEST_F(Server, tellsOfAWrongTextByItsOwnWords) {
    const auto opened = connection.openNative("SELECT * FROM \"T表A\" WHERE");
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.failure().description.find("LIMIT"), std::string::npos) << opened.failure().description;
    EXPECT_EQ(value("SELECT 1 LIMIT ALL"), "1");
}

TEST_F(Server, endsItsResultsWhenItCloses) {
    addRows(connection, 2000);
    RecordSet set = open("SELECT * FROM \"T表A\"");
    connection.close();
    EXPECT_TRUE(set.eof());
    EXPECT_FALSE(connection.isOpen());
}

TEST_F(Server, refusesWhatItWouldNotUnderstandAsOne) {
    EXPECT_NE(failureOf("DELETE FROM \"T表A\"; DELETE FROM \"T表A\"").find("more than one"), std::string::npos);
    EXPECT_NE(failureOf(" ").find("no statement"), std::string::npos);
    EXPECT_NE(failureOf(std::string("SELECT '\0'", 10)).find("NUL"), std::string::npos);
    EXPECT_EQ(failureOf("DELETE FROM \"T表A\";"), "none");
    EXPECT_FALSE(connection.openNative("DELETE FROM \"T表A\""));
    EXPECT_NE(failureOf("SELECT * FROM \"T無\"").find("T無"), std::string::npos);
    EXPECT_EQ(failureOf("SELECT * FROM \"T無\"").find('\n'), std::string::npos);
}

TEST_F(Server, aFailureWithinADrawSpoilsNothing) {
    ASSERT_TRUE(connection.beginDraw());
    run("INSERT INTO \"T表A\" VALUES ('1', 'a', 1)");
    EXPECT_NE(failureOf("INSERT INTO \"T表A\" VALUES ('1', 'again', 1)"), "none");
    EXPECT_NE(failureOf("SELECT * FROM \"T無\""), "none");
    run("INSERT INTO \"T表A\" VALUES ('2', 'b', 2)");
    ASSERT_TRUE(connection.endDraw(true));
    EXPECT_EQ(value("SELECT count(*) FROM \"T表A\""), "2");
}

TEST_F(Server, aDrawThatIsNotKeptGoesBack) {
    ASSERT_TRUE(connection.beginDraw());
    run("INSERT INTO \"T表A\" VALUES ('1', 'a', 1)");
    ASSERT_TRUE(connection.endDraw(false));
    EXPECT_EQ(value("SELECT count(*) FROM \"T表A\""), "0");
    run("INSERT INTO \"T表A\" VALUES ('1', 'a', 1)");
    EXPECT_EQ(another().openNative("SELECT count(*) AS n FROM \"T表A\"").value().text("n"), "1");
}

TEST_F(Server, aDrawThatCanNotBeKeptIsNotKeptInPart) {
    run("CREATE TABLE \"T表B\" (\"コード\" text REFERENCES \"T表A\" DEFERRABLE INITIALLY DEFERRED)");
    ASSERT_TRUE(connection.beginDraw());
    run("INSERT INTO \"T表A\" VALUES ('1', 'a', 1)");
    run("INSERT INTO \"T表B\" VALUES ('2')"); // refused when the draw ends
    EXPECT_FALSE(connection.endDraw(true));
    EXPECT_EQ(value("SELECT count(*) FROM \"T表A\""), "0");
    run("INSERT INTO \"T表A\" VALUES ('3', 'c', 3)");
    EXPECT_EQ(another().openNative("SELECT count(*) AS n FROM \"T表A\"").value().text("n"), "1");
}

TEST_F(Server, aDrawGoesBackWhenItsConnectionCloses) {
    ASSERT_TRUE(connection.beginDraw());
    run("INSERT INTO \"T表A\" VALUES ('1', 'a', 1)");
    connection.close();
    auto other = openConnection(std::getenv("KESTREL_TEST_SERVER"), Role::beside, {.connectionTimeout = 1});
    ASSERT_TRUE(other);
    EXPECT_TRUE(other.value().beginDraw()) << "the closed one still draws";
    EXPECT_EQ(other.value().openNative("SELECT count(*) AS n FROM \"T表A\"").value().text("n"), "0");
}

TEST_F(Server, drawsDoNotNest) {
    EXPECT_FALSE(connection.endDraw(true));
    EXPECT_TRUE(connection.endDraw(false));
    ASSERT_TRUE(connection.beginDraw());
    EXPECT_FALSE(connection.beginDraw());
    run("INSERT INTO \"T表A\" VALUES ('1', 'a', 1)");
    EXPECT_TRUE(connection.endDraw(true));
    EXPECT_EQ(value("SELECT count(*) FROM \"T表A\""), "1");
}

// Some servers take the whole transaction back when a deadlock hits it, and go on as if nothing were.
TEST_F(Server, aDrawThatTheServerTookBackKeepsNothing) {
    run("CREATE OR REPLACE FUNCTION deadlock() RETURNS int LANGUAGE plpgsql AS 'BEGIN RAISE EXCEPTION ''deadlock'' "
        "USING "
        "ERRCODE = ''40001''; END'");
    ASSERT_TRUE(connection.beginDraw());
    run("INSERT INTO \"T表A\" VALUES ('1', 'a', 1)");
    EXPECT_NE(failureOf("SELECT deadlock()"), "none");
    EXPECT_NE(failureOf("INSERT INTO \"T表A\" VALUES ('2', 'b', 2)"), "none");
    EXPECT_FALSE(connection.endDraw(true));
    EXPECT_EQ(value("SELECT count(*) FROM \"T表A\""), "0");
    ASSERT_TRUE(connection.beginDraw()) << "the next one knows nothing of it";
    run("INSERT INTO \"T表A\" VALUES ('2', 'b', 2)");
    EXPECT_TRUE(connection.endDraw(true));
    run("DROP FUNCTION deadlock");
}

// Both draws would end at once if nobody kept the other away.
TEST_F(Server, aSecondDrawWaitsForTheFirst) {
    auto other = openConnection(std::getenv("KESTREL_TEST_SERVER"), Role::beside, {.connectionTimeout = 1});
    ASSERT_TRUE(other);
    ASSERT_TRUE(connection.beginDraw());
    EXPECT_FALSE(other.value().beginDraw());
    ASSERT_TRUE(connection.endDraw(true));
    EXPECT_TRUE(other.value().beginDraw());
    EXPECT_TRUE(other.value().endDraw(true));
}

TEST_F(Server, aBusyRowIsWaitedForNoLongerThanToldTo) {
    addRows(connection, 2);
    auto other = openConnection(std::getenv("KESTREL_TEST_SERVER"), Role::beside, {.connectionTimeout = 1});
    ASSERT_TRUE(other);
    ASSERT_TRUE(connection.beginDraw());
    run("UPDATE \"T表A\" SET \"NameA\" = 'x' WHERE \"コード\" = '000001'");
    EXPECT_FALSE(other.value().executeNative("UPDATE \"T表A\" SET \"NameA\" = 'y' WHERE \"コード\" = '000001'"));
    EXPECT_TRUE(other.value().executeNative("UPDATE \"T表A\" SET \"NameA\" = 'y' WHERE \"コード\" = '000002'"));
    ASSERT_TRUE(connection.endDraw(true));
}

void killSession(Connection& killer, const std::string& process) {
    ASSERT_TRUE(killer.openNative("SELECT pg_terminate_backend(" + process + ", 5000)"));
}

TEST_F(Server, aLostSessionFailsOnceAndIsOpenedAnew) {
    Connection killer = another();
    addRows(connection, 2000);
    RecordSet set = open("SELECT * FROM \"T表A\" ORDER BY 1");
    killSession(killer, value("SELECT pg_backend_pid()"));
    EXPECT_NE(failureOf("INSERT INTO \"T表A\" VALUES ('x', 'a', 1)"), "none");
    EXPECT_EQ(failureOf("INSERT INTO \"T表A\" VALUES ('y', 'a', 1)"), "none");
    EXPECT_EQ(value("SELECT count(*) FROM \"T表A\" WHERE \"コード\" IN ('x', 'y')"), "1") << "sent twice";
    EXPECT_EQ(value("SELECT current_setting('lock_timeout')"), "1min") << "the new session begins like the old one";
}

// What is left of a result is fetched before the next statement goes out, so that is where the loss shows.
TEST_F(Server, aSessionLostUnderAnOpenResultFailsTheNextStatement) {
    Connection killer = another();
    addRows(connection, 5000);
    const std::string process = value("SELECT pg_backend_pid()");
    RecordSet set = open("SELECT * FROM \"T表A\" ORDER BY 1");
    killSession(killer, process);
    EXPECT_EQ(failureOf("INSERT INTO \"T表A\" VALUES ('x', 'a', 1)"), "the connection was lost");
    EXPECT_EQ(failureOf("INSERT INTO \"T表A\" VALUES ('y', 'a', 1)"), "none");
    EXPECT_THROW(countRows(set), DatabaseError);
}

TEST_F(Server, aSessionLostWithinADrawIsNotOpenedAnewBeforeItsEnd) {
    Connection killer = another();
    ASSERT_TRUE(connection.beginDraw());
    killSession(killer, value("SELECT pg_backend_pid()"));
    EXPECT_NE(failureOf("INSERT INTO \"T表A\" VALUES ('x', 'a', 1)"), "none");
    EXPECT_NE(failureOf("INSERT INTO \"T表A\" VALUES ('y', 'a', 1)"), "none");
    EXPECT_FALSE(connection.endDraw(true));
    EXPECT_EQ(value("SELECT count(*) FROM \"T表A\""), "0");
}

TEST_F(Server, aResultCutOffRaises) {
    Connection killer = another();
    addRows(connection, 5000);
    const std::string process = value("SELECT pg_backend_pid()");
    RecordSet set = open("SELECT * FROM \"T表A\" ORDER BY 1");
    killSession(killer, process);
    EXPECT_THROW(countRows(set), DatabaseError);
    EXPECT_TRUE(set.eof());
}

// A million rows would take seconds; the first block takes none of that.
TEST_F(Server, theFirstRowsOfManyDoNotWaitForTheRest) {
    RecordSet set = open("SELECT i AS n, pg_sleep(CASE WHEN i > 3000 THEN 100 ELSE 0 END) FROM generate_series(1, "
                         "1000000) i");
    EXPECT_EQ(set.text("n"), "1");
    set.close();
    EXPECT_EQ(value("SELECT 1"), "1");
}

TEST_F(Server, twoHundredThousandRowsComeWhole) {
    RecordSet set = open("SELECT lpad(i::text, 6, '0') AS \"コード\", 'n' || i AS \"NameA\" FROM generate_series(1, "
                         "200000) i");
    int count = 0;
    for (; !set.eof(); set.moveNext()) {
        ++count;
        if (set.text("NameA") != "n" + std::to_string(count)) break;
    }
    EXPECT_EQ(count, 200000);
}

std::string refusal(const std::string& text) {
    auto made = openConnection(text, Role::main, {.connectionTimeout = 2});
    return made ? "open" : made.failure().description;
}

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// The text's own database stands behind its last "/".
std::string withDatabase(const std::string& text, const std::string& database) {
    return text.substr(0, text.rfind('/') + 1) + database + ";";
}

TEST_F(Server, saysWhyItCanNotBeOpened) {
    const std::string server = std::getenv("KESTREL_TEST_SERVER");
    EXPECT_PRED2(holds, refusal(withDatabase(server, "無い")), "\"無い\" does not exist");
    EXPECT_PRED2(holds, refusal(server + "User ID=nobody at all;"), "nobody at all");
    EXPECT_PRED2(holds, refusal("Provider=PostgreSQL;User ID=x;Data Source=/run/nowhere/x;"), "/run/nowhere");
    EXPECT_PRED2(holds, refusal("Provider=PostgreSQL;User ID=x;Data Source=127.0.0.1:1/x;"), "127.0.0.1");
}

TEST_F(Server, asksForThePasswordAndNeverTellsIt) {
    const char* guarded = std::getenv("KESTREL_TEST_SERVER_GUARDED");
    ASSERT_TRUE(guarded);
    EXPECT_EQ(refusal(guarded), "open");
    const std::string wrong = refusal(std::string(guarded) + "Password=geheim;");
    EXPECT_PRED2(holds, wrong, "password authentication failed");
    EXPECT_FALSE(holds(wrong, "geheim"));
    // Even where the server repeats what it was told.
    EXPECT_FALSE(holds(refusal(withDatabase(guarded, "geheimrat") + "Password=geheim;"), "geheim"));
}

} // namespace
} // namespace kestrel::test
