#include "scratch.hpp"

#include "platform/database/connection_text.hpp"
#include "platform/database/faults.hpp"
#include "platform/journal.hpp"

#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>

namespace kestrel::test {

using database::Connection;
using database::connectionValue;
using database::openConnection;
using database::Role;
using database::Settings;

namespace {

TEST(ConnectionText, readsPairs) {
    struct {
        const char *text, *key, *value;
    } const cases[] = {
        {"Provider=p;Data Source=/a/b.accdb;", "Provider", "p"},
        {"Provider=p;Data Source=/a/b.accdb;", "data source", "/a/b.accdb"},
        {"Provider=p;User ID=;Password=;Data Source=x", "Password", ""},
        {"Provider=p;Provider=q", "Provider", "q"},
        {" provider = p q ; X=1", "PROVIDER", "p q"},
        {"A=b=c;", "A", "b=c"},
        {"Password='a;b''c';Data Source=d", "Password", "a;b'c"},
        {"Password='a;b''c';Data Source=d", "Data Source", "d"},
        {"Password=\"x;\"; Data Source=d", "Password", "x;"},
        {"Password='open;Data Source=d", "Password", "open;Data Source=d"},
        {"Data Source", "Data Source", ""},
        {";;=;A=b", "A", "b"},
        {"", "A", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(connectionValue(c.text, c.key), c.value) << c.text;
}

TEST(ConnectionText, aValueIsReadBackAsItWas) {
    for (const char* value :
         {"", "a", "a b", "a=b", " a", "a ", ";", "a;b", "\"", "'a'", "\"a;\"b", "a\"b", "青 い;"}) {
        const std::string text = "X=1;Password=" + database::pairValue(value) + ";Data Source=d;";
        EXPECT_EQ(connectionValue(text, "Password"), value) << text;
        EXPECT_EQ(connectionValue(text, "Data Source"), "d") << text;
    }
    EXPECT_EQ(database::pairValue("a b"), "a b");
    EXPECT_EQ(database::pairValue("a;\"b"), "\"a;\"\"b\"");
}

TEST(ConnectionText, isJoinedFromTheRowByItsKind) {
    database::MainDefinition row{
        .kind = "A", .provider = "p", .user = "u", .password = "w", .dataSource = "d", .server = "s", .catalog = "c"};
    const std::string byFile = "Provider=p;User ID=u;Password=w;Data Source=d;";
    EXPECT_EQ(database::mainConnectionText(row), byFile);
    row.kind = "O";
    EXPECT_EQ(database::mainConnectionText(row), byFile);
    row.kind = "S";
    EXPECT_EQ(database::mainConnectionText(row), "Provider=p;User ID=u;Password=w;Data Source=s;Initial Catalog=c;");
    row.catalog.clear();
    EXPECT_EQ(database::mainConnectionText(row), "Provider=p;User ID=u;Password=w;Data Source=s;Initial Catalog=;");
}

class OpenConnection : public testing::Test {
protected:
    Scratch scratch;
    void TearDown() override {
        database::mendAll();
        database::limitWaiting(0);
    }
};

// What opening answers as a failure, as "number description".
std::string refusal(const std::string& text, Role role = Role::main) {
    auto opened = openConnection(text, role, Settings{0, 0});
    return opened ? "open" : std::to_string(opened.failure().number) + " " + opened.failure().description;
}

TEST_F(OpenConnection, refusesWhatItCannotOpen) {
    std::string missing = scratch.path("none.db");
    EXPECT_EQ(refusal(connectionText(missing)), "14 there is no database file " + missing);
    EXPECT_FALSE(std::filesystem::exists(missing)) << "opening must not create a file";
    std::string folder = scratch.folder.string();
    EXPECT_EQ(refusal(connectionText(folder)), "14 " + folder + " is a folder, not a database file");
    std::string text = scratch.write("text.accdb", "This is no database, but it is long enough to be taken for one.");
    EXPECT_EQ(refusal(connectionText(text)), "26 " + text + " is not a database file");
    std::string empty = scratch.write("empty.accdb", "");
    EXPECT_EQ(refusal(connectionText(empty)), "26 " + empty + " is not a database file");
    for (const char* engine : {"ACE", "Jet"}) {
        std::string file =
            scratch.write("real.accdb", std::string("\0\1\0\0Standard ", 13) + engine + std::string(" DB\0", 4));
        EXPECT_EQ(refusal(connectionText(file)),
                  "14 " + file + " is an Access database, and no ODBC driver for Access is installed");
    }
}

TEST_F(OpenConnection, refusesATextThatNamesNoDatabase) {
    EXPECT_EQ(refusal(""), "1 there is no ODBC driver \"\" and no ODBC data source \"\"");
    EXPECT_EQ(refusal("Provider=Nobody;Password=geheim;Data Source=x"),
              "1 there is no ODBC driver \"Nobody\" and no ODBC data source \"x\"");
    EXPECT_EQ(refusal("Provider=Microsoft.Jet.OLEDB.4.0;"), "14 the connection names no Data Source");
}

TEST_F(OpenConnection, readsTheHeaderAtOnce) {
    std::string garbage = scratch.write("bad.db", std::string("SQLite format 3\0", 16) + std::string(4096, 'x'));
    EXPECT_EQ(refusal(connectionText(garbage)).substr(0, 3), "26 ");
    makeDatabase(scratch.path("cut.db"), {"CREATE TABLE a (b)"});
    std::filesystem::resize_file(scratch.path("cut.db"), 100);
    EXPECT_NE(refusal(connectionText(scratch.path("cut.db"))), "open");
}

TEST_F(OpenConnection, takesBothProvidersEitherSeparatorAndOddNames) {
    std::filesystem::create_directory(scratch.path("data"));
    std::string name = "data/住所 #1%41?x=1.accdb";
    newDatabase(scratch.path(name));
    EXPECT_EQ(refusal("provider=microsoft.jet.oledb.4.0;Data Source=" + scratch.path("data\\住所 #1%41?x=1.accdb")),
              "open");
    EXPECT_EQ(refusal(connectionText(scratch.path(name))), "open");
    for (const auto& entry : std::filesystem::directory_iterator(scratch.path("data")))
        EXPECT_EQ(entry.path().filename().string().substr(0, 13), "住所 #1%41?") << "another file was made";
}

TEST_F(OpenConnection, usesTheHousesModes) {
    auto connection = newDatabase(scratch.path("a.db"));
    EXPECT_EQ(query(connection, "PRAGMA journal_mode"), std::vector<std::string>{"wal"});
    EXPECT_EQ(query(connection, "PRAGMA synchronous"), std::vector<std::string>{"2"});
    run(connection, {"PRAGMA journal_mode=DELETE"});
    connection.close();
    connection = connect(scratch.path("a.db"));
    EXPECT_EQ(query(connection, "PRAGMA journal_mode"), std::vector<std::string>{"wal"});
}

TEST_F(OpenConnection, takesADoubleQuotedTextForANameOnly) {
    auto connection = newDatabase(scratch.path("a.db"));
    run(connection, {"CREATE TABLE a (b TEXT)", "INSERT INTO a VALUES ('x')"});
    EXPECT_FALSE(connection.open("SELECT * FROM a WHERE b = \"x\""));
    EXPECT_FALSE(connection.execute("CREATE TABLE c (d CHECK (d <> \"x\"))"));
}

// Runs the step as an ordinary user in a process of its own; whether it answered true.
bool asOrdinaryUser(const Scratch& scratch, bool (*step)(const std::string&), const std::string& path) {
    std::filesystem::permissions(scratch.folder, std::filesystem::perms(0755));
    pid_t child = fork();
    if (child == 0) {
        // Root that may not become another has lost what sets it above the permissions, and is as good as ordinary.
        bool user = getuid() != 0 || setgid(65534) != 0 || setuid(65534) == 0;
        bool held = false;
        try {
            held = user && step(path);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
        }
        _exit(held ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool readsButDoesNotWrite(const std::string& path) {
    auto connection = connect(path);
    return query(connection, "SELECT b FROM a") == std::vector<std::string>{"x"} &&
           !connection.execute("INSERT INTO a VALUES ('y')") &&
           query(connection, "SELECT b FROM a") == std::vector<std::string>{"x"};
}

TEST_F(OpenConnection, readsAFileThatCannotBeWritten) {
    std::string path = scratch.path("a.db");
    makeDatabase(path, {"CREATE TABLE a (b TEXT)", "INSERT INTO a VALUES ('x')"});
    chmod(path.c_str(), 0444);
    std::filesystem::create_directory(scratch.path("open"));
    chmod(scratch.path("open").c_str(), 0777);
    std::filesystem::copy(path, scratch.path("open/a.db"));
    std::filesystem::create_directory(scratch.path("closed"));
    std::filesystem::copy(path, scratch.path("closed/a.db"));
    chmod(scratch.path("closed").c_str(), 0555);
    EXPECT_TRUE(asOrdinaryUser(scratch, readsButDoesNotWrite, scratch.path("closed/a.db")))
        << "in a folder that can't be written either";
    chmod(scratch.path("closed").c_str(), 0755);
    EXPECT_TRUE(asOrdinaryUser(scratch, readsButDoesNotWrite, scratch.path("open/a.db")));
    EXPECT_TRUE(asOrdinaryUser(scratch, readsButDoesNotWrite, scratch.path("open/a.db"))) << "a second time";
}

bool isRefused(const std::string& path) {
    return refusal(connectionText(path)) != "open";
}

// The log may hold more than the file, and can't be read where its shared memory has no place.
TEST_F(OpenConnection, neverOverlooksALogBesideAReadOnlyFile) {
    std::string path = scratch.path("a.db"), log = scratch.path("log");
    auto writer = newDatabase(path);
    run(writer, {"CREATE TABLE a (b TEXT)", "INSERT INTO a VALUES ('x')"});
    std::filesystem::create_directory(log);
    for (const char* name : {"/a.db", "/a.db-wal"}) {
        std::filesystem::copy(scratch.folder.string() + name, log + name);
        chmod((log + name).c_str(), 0444);
    }
    chmod(log.c_str(), 0555); // not for its owner either, who is the ordinary user himself when the tests run as one
    EXPECT_TRUE(asOrdinaryUser(scratch, isRefused, log + "/a.db"));
    chmod(log.c_str(), 0777);
    EXPECT_TRUE(asOrdinaryUser(scratch, readsButDoesNotWrite, log + "/a.db"));
}

TEST_F(OpenConnection, refusesAFileThatMayNotBeRead) {
    newDatabase(scratch.path("a.db"));
    chmod(scratch.path("a.db").c_str(), 0000);
    auto refuses = [](const std::string& path) {
        return refusal(connectionText(path)) == "14 the database file " + path + " can't be read";
    };
    EXPECT_TRUE(asOrdinaryUser(scratch, refuses, scratch.path("a.db")));
}

TEST_F(OpenConnection, waitsForABusyDatabase) {
    newDatabase(scratch.path("a.db"));
    auto hold = database::holdExclusively(scratch.path("a.db"), 60);
    ASSERT_TRUE(hold) << hold.failure().description;
    database::limitWaiting(1);
    auto opened = openConnection(connectionText(scratch.path("a.db")), Role::main);
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.failure().number, 5);
    EXPECT_EQ(opened.failure().description, "database is locked: " + scratch.path("a.db"));
    hold.value().release();
    auto brief = database::holdExclusively(scratch.path("a.db"), 0.2);
    EXPECT_TRUE(openConnection(connectionText(scratch.path("a.db")), Role::main)) << "given back while it waited";
}

TEST_F(OpenConnection, canBeBrokenForOneRole) {
    newDatabase(scratch.path("a.db"));
    database::breakOpening(Role::local);
    EXPECT_EQ(refusal(connectionText(scratch.path("a.db")), Role::local), "1 broken on purpose");
    EXPECT_EQ(refusal(connectionText(scratch.path("a.db"))), "open");
    database::mendAll();
    EXPECT_EQ(refusal(connectionText(scratch.path("a.db")), Role::local), "open");
}

class Statements : public OpenConnection {
protected:
    std::string path = scratch.path("a.db");
    Connection connection = newDatabase(path);

    void SetUp() override { run(connection, {"CREATE TABLE a (b TEXT)", "INSERT INTO a VALUES ('x')"}); }
    void TearDown() override {
        OpenConnection::TearDown();
        journal::stop();
    }
    std::string failureOf(std::string_view sql) {
        auto status = connection.execute(sql);
        return status ? "done" : std::to_string(status.failure().number) + " " + status.failure().description;
    }
};

TEST_F(Statements, areOneToAText) {
    const std::string several = "1 the text holds more than one statement", none = "1 the text holds no statement";
    EXPECT_EQ(failureOf("DELETE FROM a; DELETE FROM a"), several);
    EXPECT_EQ(failureOf("DELETE FROM a; nonsense"), several);
    EXPECT_EQ(failureOf("DELETE FROM a;; DELETE FROM a"), several);
    EXPECT_EQ(failureOf(""), none);
    EXPECT_EQ(failureOf(" -- nothing"), none);
    EXPECT_EQ(failureOf(std::string("DELETE FROM a\0 WHERE b = 'y'", 27)), "1 the text holds a NUL character");
    EXPECT_FALSE(connection.open("SELECT b FROM a; SELECT b FROM a"));
    EXPECT_EQ(query(connection, "SELECT b FROM a"), std::vector<std::string>{"x"}) << "nothing of it may run";
    EXPECT_EQ(failureOf("DELETE FROM a ; -- the end"), "done");
}

TEST_F(Statements, failWithTheEnginesWords) {
    EXPECT_EQ(failureOf("DELETE FROM missing"), "1 no such table: missing");
    run(connection, {"CREATE TABLE k (b TEXT PRIMARY KEY)", "INSERT INTO k VALUES ('1')"});
    EXPECT_EQ(failureOf("INSERT INTO k VALUES ('1')"), "19 UNIQUE constraint failed: k.b");
    auto set = connection.open("SELECT b FROM a WHERE c = '1'");
    ASSERT_FALSE(set);
    EXPECT_EQ(set.failure().description, "no such column: c");
}

TEST_F(Statements, thatAnswerNoRowsAreNotOpened) {
    EXPECT_FALSE(connection.open("DELETE FROM a"));
    EXPECT_EQ(query(connection, "SELECT b FROM a"), std::vector<std::string>{"x"});
}

TEST_F(Statements, failOnAConnectionThatIsNotOpen) {
    Connection closed;
    EXPECT_FALSE(closed.isOpen());
    closed.close();
    EXPECT_EQ(closed.execute("DELETE FROM a").failure().description, "the connection is not open");
    EXPECT_FALSE(closed.open("SELECT 1"));
    connection.close();
    EXPECT_FALSE(connection.isOpen());
    EXPECT_EQ(failureOf("DELETE FROM a"), "1 the connection is not open");
}

TEST_F(Statements, waitToWriteUntilTheOtherIsDone) {
    database::limitWaiting(1);
    {
        auto hold = database::holdExclusively(path, 60);
        ASSERT_TRUE(hold) << hold.failure().description;
        EXPECT_EQ(failureOf("INSERT INTO a VALUES ('y')"), "5 database is locked");
        EXPECT_EQ(query(connection, "SELECT b FROM a"), std::vector<std::string>{"x"});
    }
    auto brief = database::holdExclusively(path, 0.2);
    EXPECT_EQ(failureOf("INSERT INTO a VALUES ('y')"), "done");
}

TEST_F(Statements, endAtTheCommandTimeout) {
    auto opened = openConnection(connectionText(path), Role::main, Settings{0, 1});
    ASSERT_TRUE(opened);
    auto set =
        opened.value().open("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT count(*) FROM n");
    ASSERT_FALSE(set);
    EXPECT_EQ(set.failure().description, "interrupted");
    EXPECT_EQ(query(opened.value(), "SELECT b FROM a"), std::vector<std::string>{"x"}) << "the connection lives on";
}

TEST_F(Statements, canBeBrokenByWhatTheyHold) {
    database::breakStatements(Role::main, "DELETE");
    database::breakStatements(Role::main, "FROM k");
    EXPECT_EQ(failureOf("DELETE FROM a"), "1 broken on purpose");
    EXPECT_EQ(connection.open("SELECT * FROM k").failure().description, "broken on purpose");
    EXPECT_EQ(query(connection, "SELECT b FROM a"), std::vector<std::string>{"x"});
    auto beside = connect(path, Role::beside);
    EXPECT_TRUE(beside.execute("DELETE FROM a"));
    database::mendAll();
    EXPECT_EQ(failureOf("DELETE FROM a"), "done");
}

TEST_F(Statements, ofTheRunHistoryAreSparedUnlessTheyAreMeant) {
    run(connection, {"CREATE TABLE プログラム稼動履歴 (摘要 TEXT)"});
    const char* line = "INSERT INTO プログラム稼動履歴 (摘要)VALUES ('エラー DELETE')";
    database::breakStatements(Role::main, "DELETE");
    EXPECT_EQ(failureOf(line), "done");
    EXPECT_EQ(failureOf("DELETE FROM プログラム稼動履歴"), "1 broken on purpose");
    database::breakStatements(Role::main, "プログラム稼動履歴");
    EXPECT_EQ(failureOf(line), "1 broken on purpose");
}

TEST_F(Statements, standInTheJournalAsTheProgramSentThem) {
    auto local = connect(path, Role::local), beside = connect(path, Role::beside);
    database::breakStatements(Role::main, "broken");
    journal::start();
    query(connection, "SELECT TOP 1 [b] FROM a");
    run(local, {"DELETE FROM a"});
    query(beside, "SELECT TOP 1 b FROM a");
    EXPECT_FALSE(connection.execute("DELETE FROM broken"));
    EXPECT_FALSE(connection.execute("DELETE FROM missing"));
    journal::stop();
    query(connection, "SELECT b FROM a");
    std::vector<std::pair<journal::Channel, std::string>> seen;
    for (const auto& entry : journal::entries()) seen.emplace_back(entry.channel, entry.text);
    using journal::Channel;
    EXPECT_EQ(seen, (decltype(seen){{Channel::sentMain, "SELECT TOP 1 [b] FROM a"},
                                    {Channel::engine, "SELECT \"b\" FROM a LIMIT 1"},
                                    {Channel::sentLocal, "DELETE FROM a"},
                                    {Channel::sentMain, "DELETE FROM broken"},
                                    {Channel::sentMain, "DELETE FROM missing"}}));
}

} // namespace

} // namespace kestrel::test
