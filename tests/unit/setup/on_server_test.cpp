// Installations whose main database is on a server. The databases have names of this process's own and go with the
// test.
#include "../server.hpp"
#include "installations.hpp"
#include "platform/database/rewriter.hpp"
#include "platform/database/server_databases.hpp"
#include "setup/check.hpp"
#include "setup/create.hpp"
#include "setup/example.hpp"
#include "setup/main_database.hpp"
#include "setup/main_place.hpp"
#include "setup/move.hpp"
#include "setup/tables.hpp"
#include "setup/words.hpp"

#include <fstream>
#include <sstream>

namespace kestrel::setup {

class OnServerTest : public Installations {
protected:
    void SetUp() override {
        Installations::SetUp();
        KESTREL_NEEDS_SERVER();
        name = "setup_" + std::to_string(getpid());
        text = database::withDatabase(test::testServer(), name);
        server = opened(test::testServer());
        ASSERT_TRUE(database::dropServerDatabase(server, name)) << "left by an earlier run";
    }
    void TearDown() override {
        if (server.isOpen()) {
            EXPECT_TRUE(database::dropServerDatabase(server, name));
        }
        Installations::TearDown();
    }

    static Connection opened(const std::string& connectionText) {
        auto connection = database::openConnection(connectionText, database::Role::beside);
        EXPECT_TRUE(connection) << (connection ? "" : connection.failure().description);
        return connection ? std::move(connection.value()) : Connection();
    }
    static std::string wordOf(const Status& status) { return status ? "done" : status.failure().description; }

    std::string createAt(const std::string& folder, What what, const std::string& kind = "S") {
        std::ostringstream told;
        const Status status = create({at(folder), what, "20240515", text, kind}, "", told);
        words = told.str();
        return wordOf(status);
    }
    std::string moveFrom(const std::string& root) {
        std::ostringstream told;
        const Status status = moveMainDatabase({root, text, "S", false}, told);
        words = told.str();
        return wordOf(status);
    }
    // The first column of the first row, from the database on the server.
    std::string valueOf(const std::string& sql) {
        Connection store = opened(text);
        const auto rows = readRows(store, sql);
        EXPECT_TRUE(rows) << sql << ": " << (rows ? "" : rows.failure().description);
        if (!rows || rows.value().empty()) return "nothing";
        return rows.value().front().values.front().second.value_or("NULL");
    }
    bool databaseIsThere() {
        const auto rows = server.openNative("SELECT datname FROM pg_database WHERE datname = '" + name + "'");
        return rows && !rows.value().eof();
    }
    void makeDatabase(const std::vector<std::string>& statements) {
        ASSERT_TRUE(database::createServerDatabase(server, name));
        Connection store = opened(text);
        for (const std::string& sql : statements) ASSERT_TRUE(store.executeNative(sql)) << sql;
    }

    std::string name, text;
    std::string words; // what was told beside the result
    Connection server;
};

TEST_F(OnServerTest, anInstallationIsMadeWithItsDatabase) {
    ASSERT_EQ(createAt("a", What::full), "done");
    EXPECT_NE(words.find("the database " + name + " was made\n"), std::string::npos) << words;
    EXPECT_FALSE(std::filesystem::exists(at("a") + "/" + mainFile));
    EXPECT_EQ(checkInstallation(at("a")), std::vector<std::string>{});
    EXPECT_EQ(valueOf("SELECT COUNT(*) AS n FROM T名簿明細"), "600");
    const auto example = exampleCommandLine(at("a"));
    ASSERT_TRUE(example) << example.failure().description;
    EXPECT_EQ(example.value(), "0012025033100000012000003");
}

TEST_F(OnServerTest, everyKindLeadsToIt) {
    for (const std::string kind : {"A", "S", "O"}) {
        ASSERT_EQ(createAt(kind, What::minimal, kind), "done");
        EXPECT_EQ(valueIn(at(kind), localFile, "SELECT db FROM データベース定義"), kind);
        auto main = openMainStore(at(kind));
        ASSERT_TRUE(main) << main.failure().description;
        EXPECT_EQ(ownTables(main.value()).value().size(), 31u);
        main.value().close();
        ASSERT_TRUE(database::dropServerDatabase(server, name));
    }
}

TEST_F(OnServerTest, aDatabaseWithOneOfTheTablesIsNotTouched) {
    makeDatabase({"CREATE TABLE \"T閲覧\" (a text)"});
    EXPECT_EQ(createAt("a", What::minimal), "the database already has the table T閲覧; nothing was changed");
    EXPECT_FALSE(std::filesystem::exists(at("a")));
    Connection store = opened(text);
    EXPECT_EQ(presentTables(store).value(), std::vector<std::string>{"T閲覧"});
    EXPECT_EQ(moveFrom(make("b", What::minimal)), "the database already has the table T閲覧; nothing was changed");
}

TEST_F(OnServerTest, anEmptyDatabaseThatIsThereIsFilled) {
    makeDatabase({"CREATE TABLE other (a text)"});
    ASSERT_EQ(createAt("a", What::minimal), "done");
    EXPECT_EQ(words.find("was made"), std::string::npos) << words;
    EXPECT_EQ(valueOf("SELECT 氏名 FROM M担当者"), "山田太郎");
}

TEST_F(OnServerTest, whatFailsLeavesNothing) {
    std::filesystem::create_directories(at("a") + "/filled");
    EXPECT_EQ(createAt("a", What::minimal), at("a") + " is not empty");
    EXPECT_FALSE(databaseIsThere());
}

TEST_F(OnServerTest, aDatabaseOfAnotherOrderIsRefused) {
    const std::pair<const char*, const char*> others[] = {
        {"LOCALE 'C'", "C"}, {"LOCALE 'C.UTF-8' LOCALE_PROVIDER icu ICU_LOCALE 'ja-JP'", "C.UTF-8"}};
    for (const auto& [order, locale] : others) {
        ASSERT_TRUE(server.executeNative("CREATE DATABASE " + name + " ENCODING 'UTF8' TEMPLATE template0 " + order));
        const std::string refused = createAt("a", What::minimal);
        EXPECT_TRUE(
            refused.starts_with("the database " + name + " (encoding UTF8, locale " + locale + ") can't serve: "))
            << refused;
        EXPECT_TRUE(databaseIsThere());
        ASSERT_TRUE(database::dropServerDatabase(server, name));
    }
}

TEST_F(OnServerTest, textsCompareByCodePointAndPartsAreFound) {
    ASSERT_EQ(createAt("a", What::full), "done");
    EXPECT_EQ(valueOf("SELECT COUNT(*) AS n FROM M担当者 WHERE ログインID = 'YAMADA'"), "0");
    EXPECT_EQ(valueOf("SELECT コード FROM M担当者 WHERE カナ IS NOT NULL ORDER BY カナ DESC"), "00001");
    Connection store = opened(text);
    for (const char* sql :
         {"SET enable_seqscan = off", "CREATE FUNCTION plan(searched text) RETURNS SETOF text LANGUAGE plpgsql AS "
                                      "'BEGIN RETURN QUERY EXECUTE ''EXPLAIN '' || searched; END'"})
        ASSERT_TRUE(store.executeNative(sql)) << sql;
    auto plan = store.openNative(R"(SELECT string_agg(step, ' ') AS steps FROM
                                    plan('SELECT * FROM "M得意先" WHERE "名称B" ILIKE ''%営業部%''') AS step)");
    ASSERT_TRUE(plan) << plan.failure().description;
    EXPECT_NE(plan.value().text("steps").find("M得意先_部分検索"), std::string::npos) << plan.value().text("steps");
}

TEST_F(OnServerTest, numbersAndJoinedTextsAnswerAsInTheFile) {
    ASSERT_EQ(createAt("a", What::full), "done");
    const std::string file = make("b", What::full);
    for (const char* sql :
         {"SELECT 定価掛率 FROM M得意先 WHERE コード = '000005'",
          "SELECT 現金決済金額 FROM M得意先 WHERE コード = '000005'", "SELECT 区分 FROM K発送区分 ORDER BY 区分 DESC",
          "SELECT 宛先名称 FROM T名簿明細 WHERE 名簿No = '00000012' AND 名簿宛先No = '000003'"})
        EXPECT_EQ(valueOf(sql), valueIn(file, mainFile, sql)) << sql;
}

TEST_F(OnServerTest, aMoveBringsEveryRowAndThenNamesTheServer) {
    const std::string root = make("a", What::full);
    change(root, mainFile,
           "UPDATE M得意先 SET 備考A = '', 備考B = NULL, 備考C = '\\ ''青'' 𠮷' WHERE コード = '000001'");
    change(root, mainFile, "UPDATE M得意先 SET 定価掛率 = 1e20 WHERE コード = '000002'");
    std::filesystem::create_directories(root + "/users/甲/conf");
    std::filesystem::copy_file(root + "/" + localFile, root + "/users/甲/conf/usrcnfg.accdb");
    ASSERT_EQ(moveFrom(root), "done");
    EXPECT_NE(words.find("M得意先: 1300 rows\n"), std::string::npos) << words;
    EXPECT_NE(words.find("the same on both sides"), std::string::npos) << words;
    EXPECT_EQ(checkInstallation(root), std::vector<std::string>{});
    EXPECT_EQ(valueIn(root, localFile, "SELECT db FROM データベース定義"), "S");
    EXPECT_EQ(valueIn(root, "users/甲/conf/usrcnfg.accdb", "SELECT db FROM データベース定義"), "S");
    EXPECT_EQ(valueIn(root, mainFile, "SELECT COUNT(*) AS n FROM M得意先"), "1300") << "the file stays";
    EXPECT_EQ(valueOf("SELECT 備考C FROM M得意先 WHERE コード = '000001' AND 備考A = '' AND 備考B IS NULL"),
              "\\ '青' 𠮷");
    EXPECT_EQ(moveFrom(root), "the main database is on a server already");
}

TEST_F(OnServerTest, aMoveThatFailsLeavesTheInstallationAndTheServerAsTheyWere) {
    const std::string root = make("a", What::minimal);
    change(root, mainFile, "INSERT INTO M得意先 (コード, 定価掛率) VALUES ('000900', '高い')");
    const std::string refused = moveFrom(root);
    EXPECT_TRUE(refused.starts_with("table M得意先: ")) << refused;
    EXPECT_EQ(valueIn(root, localFile, "SELECT db FROM データベース定義"), "A");
    EXPECT_FALSE(databaseIsThere());
    EXPECT_EQ(checkInstallation(root), std::vector<std::string>{});
}

TEST_F(OnServerTest, aMoveIntoADatabaseThatWasThereTakesOnlyItsTablesBack) {
    makeDatabase({"CREATE TABLE other (a text)"});
    const std::string root = make("a", What::minimal);
    change(root, mainFile, "INSERT INTO M得意先 (コード, 定価掛率) VALUES ('000900', '高い')");
    EXPECT_NE(moveFrom(root), "done");
    Connection store = opened(text);
    EXPECT_EQ(presentTables(store).value(), std::vector<std::string>{"other"});
}

// What is no UTF-8 is no text on a server.
TEST_F(OnServerTest, aTextThatTheServerRefusesUndoesTheMove) {
    const std::string root = make("a", What::minimal);
    change(root, mainFile, "UPDATE M部門 SET 名称 = CAST(x'41FF42' AS TEXT)");
    EXPECT_TRUE(moveFrom(root).starts_with("table M部門: ")) << moveFrom(root);
    EXPECT_FALSE(databaseIsThere());
    EXPECT_EQ(valueIn(root, localFile, "SELECT db FROM データベース定義"), "A");
}

TEST_F(OnServerTest, aConfigurationThatCannotBeWrittenUndoesTheMove) {
    makeDatabase({"CREATE TABLE other (a text)"});
    const std::string root = make("a", What::minimal);
    change(root, localFile,
           "CREATE TRIGGER fixed BEFORE UPDATE ON データベース定義 BEGIN SELECT RAISE(ABORT, 'fixed'); END");
    EXPECT_EQ(moveFrom(root), "fixed");
    Connection store = opened(text);
    EXPECT_EQ(presentTables(store).value(), std::vector<std::string>{"other"});
}

TEST_F(OnServerTest, aUsersCopyThatCannotBeWrittenIsTold) {
    const std::string root = make("a", What::minimal);
    std::filesystem::create_directories(root + "/users/甲/conf");
    std::ofstream(root + "/users/甲/conf/usrcnfg.accdb") << "no database";
    ASSERT_EQ(moveFrom(root), "done");
    EXPECT_NE(words.find(root + "/users/甲/conf/usrcnfg.accdb still names the old place: "), std::string::npos)
        << words;
}

// The plan of a statement of the program, as this server gets it.
std::string planOf(Connection& store, std::string_view sql) {
    database::RequiredColumns required;
    for (const Table& table : tables()) {
        for (const Column& column : table.columns) {
            if (column.required) required.add(table.name, column.name);
        }
    }
    const std::string text = database::rewrite(sql, database::Dialect::postgresql, &required);
    const auto lines = store.openNative("SELECT string_agg(line, ' ') AS plan FROM plan_of(" +
                                        literal(text, wordsOf(database::Dialect::postgresql)) + ") AS line");
    return lines ? lines.value().text("plan") : lines.failure().description;
}

TEST_F(OnServerTest, stepsFromRosterToRosterReadAnIndexAndSortNothing) {
    ASSERT_EQ(createAt("a", What::minimal), "done");
    Connection store = opened(text);
    for (const char* sql :
         {"INSERT INTO \"T名簿\" (\"事業所コード\", \"番号基準日付\", \"名簿No\", \"名簿日付\") SELECT '001', "
          "'20240331', "
          "lpad(i::text, 8, '0'), CASE WHEN i % 50 > 0 THEN to_char(date '2020-01-01' + i % 1500, 'YYYYMMDD') END FROM "
          "generate_series(1, 5000) i",
          "ANALYZE \"T名簿\"",
          "CREATE FUNCTION plan_of(sql text) RETURNS SETOF text LANGUAGE plpgsql AS 'BEGIN RETURN QUERY EXECUTE "
          "''EXPLAIN '' || sql; END'"})
        ASSERT_TRUE(store.executeNative(sql)) << sql;
    const struct {
        const char *step, *scan;
    } steps[] = {
        {"名簿日付 <= '20240101' ORDER BY 名簿日付 DESC, 名簿No DESC", "Scan Backward using \"T名簿_名簿日付順\""},
        {"名簿日付 >= '20200101' ORDER BY 名簿日付, 名簿No", "Scan using \"T名簿_名簿日付順\""},
        {"(番号基準日付 <> '') ORDER BY 名簿日付 DESC, 名簿No DESC", "Scan Backward using \"T名簿_名簿日付順\""},
        {"((番号基準日付 = '20240331' AND 名簿No < '00003000') OR 番号基準日付 < '20240331') ORDER BY 番号基準日付 "
         "DESC, "
         "名簿No DESC",
         "Scan Backward using \"T名簿_pkey\""},
        {"((番号基準日付 = '20240331' AND 名簿No > '00003000') OR 番号基準日付 > '20240331') ORDER BY 番号基準日付 , "
         "名簿No",
         "Scan using \"T名簿_pkey\""},
    };
    for (const auto& [step, scan] : steps) {
        const std::string plan = planOf(
            store, std::string("SELECT TOP 1 番号基準日付,名簿No FROM T名簿 WHERE 事業所コード = '001' AND ") + step);
        EXPECT_NE(plan.find(scan), std::string::npos) << plan;
        EXPECT_EQ(plan.find("Sort"), std::string::npos) << plan;
    }
}

} // namespace kestrel::setup
