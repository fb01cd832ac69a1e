#include "setup/definition.hpp"

#include "setup/rows.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace kestrel::setup {

using database::Dialect;

namespace {

struct Golden {
    Dialect dialect;
    const char* classes;    // a whole number as key
    const char* postal;     // an indexed text and others
    const char* index;      // of that table
    const char* registers;  // a key of two columns
    const char* joinedName; // a column made of three
    const char* amount;     // a decimal number
};

constexpr Golden golden[] = {
    {Dialect::sqlite, "CREATE TABLE K発送区分 (区分 INTEGER NOT NULL, 名称 TEXT, PRIMARY KEY (区分))",
     "CREATE TABLE M郵便番号 (郵便番号 TEXT, 住所A TEXT, 住所B TEXT)",
     "CREATE INDEX M郵便番号_郵便番号 ON M郵便番号 (郵便番号)",
     "CREATE TABLE A期日別番号情報 (番号ID TEXT NOT NULL, 期日 TEXT NOT NULL, 連番 TEXT, 履歴連番 TEXT, "
     "PRIMARY KEY (番号ID, 期日)) WITHOUT ROWID",
     ", 宛先名称 TEXT GENERATED ALWAYS AS (ifnull(宛先名称A,'')||ifnull(宛先名称B,'')||ifnull(宛先名称C,'')) VIRTUAL, ",
     ", 定価掛率 NUMERIC, "},
    {Dialect::postgresql, R"(CREATE TABLE "K発送区分" ("区分" integer NOT NULL, "名称" text, PRIMARY KEY ("区分")))",
     R"(CREATE TABLE "M郵便番号" ("郵便番号" text, "住所A" text, "住所B" text))",
     R"(CREATE INDEX "M郵便番号_郵便番号" ON "M郵便番号" ("郵便番号" NULLS FIRST))",
     R"(CREATE TABLE "A期日別番号情報" ("番号ID" text NOT NULL, "期日" text NOT NULL, "連番" text, "履歴連番" text, )"
     R"(PRIMARY KEY ("番号ID", "期日")))",
     R"(, "宛先名称" text GENERATED ALWAYS AS (coalesce("宛先名称A",'')||coalesce("宛先名称B",'')||)"
     R"(coalesce("宛先名称C",'')) STORED, )",
     R"(, "定価掛率" numeric, )"},
    {Dialect::sqlServer,
     "CREATE TABLE [K発送区分] ([区分] int NOT NULL, [名称] nvarchar(4000) COLLATE Latin1_General_100_BIN2, "
     "PRIMARY KEY ([区分]))",
     "CREATE TABLE [M郵便番号] ([郵便番号] nvarchar(100) COLLATE Latin1_General_100_BIN2, [住所A] nvarchar(4000) "
     "COLLATE Latin1_General_100_BIN2, [住所B] nvarchar(4000) COLLATE Latin1_General_100_BIN2)",
     "CREATE INDEX [M郵便番号_郵便番号] ON [M郵便番号] ([郵便番号])",
     "CREATE TABLE [A期日別番号情報] ([番号ID] nvarchar(100) COLLATE Latin1_General_100_BIN2 NOT NULL, [期日] "
     "nvarchar(100) COLLATE Latin1_General_100_BIN2 NOT NULL, [連番] nvarchar(4000) COLLATE Latin1_General_100_BIN2, "
     "[履歴連番] nvarchar(4000) COLLATE Latin1_General_100_BIN2, PRIMARY KEY ([番号ID], [期日]))",
     ", [宛先名称] AS (coalesce([宛先名称A],N'')+coalesce([宛先名称B],N'')+coalesce([宛先名称C],N'')) PERSISTED, ",
     ", [定価掛率] decimal(19,4), "},
    {Dialect::oracle,
     R"(CREATE TABLE "K発送区分" ("区分" NUMBER(10) NOT NULL, "名称" VARCHAR2(4000), PRIMARY KEY ("区分")))",
     R"(CREATE TABLE "M郵便番号" ("郵便番号" VARCHAR2(100 CHAR), "住所A" VARCHAR2(4000), "住所B" VARCHAR2(4000)))",
     R"(CREATE INDEX "M郵便番号_郵便番号" ON "M郵便番号" ("郵便番号"))",
     R"(CREATE TABLE "A期日別番号情報" ("番号ID" VARCHAR2(100 CHAR) NOT NULL, "期日" VARCHAR2(100 CHAR) NOT NULL, )"
     R"("連番" VARCHAR2(4000), "履歴連番" VARCHAR2(4000), PRIMARY KEY ("番号ID", "期日")))",
     R"(, "宛先名称" GENERATED ALWAYS AS ("宛先名称A"||"宛先名称B"||"宛先名称C") VIRTUAL, )",
     R"(, "定価掛率" NUMBER, )"},
    {Dialect::mariadb,
     R"(CREATE TABLE "K発送区分" ("区分" int NOT NULL, "名称" mediumtext, PRIMARY KEY ("区分")) )"
     "CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin",
     R"(CREATE TABLE "M郵便番号" ("郵便番号" varchar(100), "住所A" mediumtext, "住所B" mediumtext) )"
     "CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin",
     R"(CREATE INDEX "M郵便番号_郵便番号" ON "M郵便番号" ("郵便番号"))",
     R"(CREATE TABLE "A期日別番号情報" ("番号ID" varchar(100) NOT NULL, "期日" varchar(100) NOT NULL, )"
     R"("連番" mediumtext, "履歴連番" mediumtext, PRIMARY KEY ("番号ID", "期日")) )"
     "CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin",
     R"(, "宛先名称" mediumtext GENERATED ALWAYS AS (concat(coalesce("宛先名称A",''),coalesce("宛先名称B",''),)"
     R"(coalesce("宛先名称C",''))) STORED, )",
     R"(, "定価掛率" decimal(19,4), )"},
};

// The statement of that table or index.
std::string statementOf(const std::vector<std::string>& statements, const std::string& head) {
    const auto found =
        std::ranges::find_if(statements, [&](const std::string& sql) { return sql.starts_with(head + " "); });
    return found == statements.end() ? "nothing" : *found;
}

bool isIn(const std::string& part, const std::string& whole) {
    return whole.find(part) != std::string::npos;
}

std::size_t characters(const std::string& text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return (c & 0xc0) != 0x80; }));
}

} // namespace

TEST(DefinitionTest, eachFamilyGetsItsOwnWords) {
    for (const Golden& one : golden) {
        const auto statements = createStatements("main", one.dialect);
        const auto table = [&](const char* name) {
            return statementOf(statements, "CREATE TABLE " + quoted(name, wordsOf(one.dialect)));
        };
        EXPECT_EQ(table("K発送区分"), one.classes);
        EXPECT_EQ(table("M郵便番号"), one.postal);
        EXPECT_EQ(table("A期日別番号情報"), one.registers);
        EXPECT_EQ(std::ranges::count(statements, std::string(one.index)), 1) << one.index;
        EXPECT_TRUE(isIn(one.joinedName, table("T名簿明細"))) << table("T名簿明細");
        EXPECT_TRUE(isIn(one.amount, table("M得意先"))) << table("M得意先");
    }
}

TEST(DefinitionTest, everyFamilyMakesTheSameTablesAndIndexes) {
    for (const Golden& one : golden) EXPECT_EQ(createStatements("main", one.dialect).size(), 37u);
}

// Else the server sorts a whole office's rosters to find the last one.
TEST(DefinitionTest, anIndexHasItsNullsWhereTheProgramsOrdersHaveThem) {
    EXPECT_EQ(statementOf(createStatements("main", Dialect::postgresql), R"(CREATE INDEX "T名簿_名簿日付順")"),
              R"(CREATE INDEX "T名簿_名簿日付順" ON "T名簿" ("事業所コード", "名簿日付" NULLS FIRST, "名簿No"))");
    EXPECT_EQ(statementOf(createStatements("main", Dialect::mariadb), R"(CREATE INDEX "T名簿_名簿日付順")"),
              R"(CREATE INDEX "T名簿_名簿日付順" ON "T名簿" ("事業所コード", "名簿日付", "名簿No"))");
}

TEST(DefinitionTest, partsOfTextsAreIndexedWhereTheServerCanDoThat) {
    for (const Golden& one : golden) {
        EXPECT_EQ(searchStatements("main", one.dialect).empty(), one.dialect != Dialect::postgresql);
    }
    const auto statements = searchStatements("main", Dialect::postgresql);
    EXPECT_EQ(statements.size(), 6u);
    EXPECT_EQ(
        statementOf(statements, R"(CREATE INDEX "M郵便番号_部分検索")"),
        R"(CREATE INDEX "M郵便番号_部分検索" ON "M郵便番号" USING gin ("住所A" gin_trgm_ops, "住所B" gin_trgm_ops))");
}

TEST(DefinitionTest, searchedColumnsExistAndAreTexts) {
    for (const Table& table : tables()) {
        for (const Index& search : table.searches) {
            for (const std::string& name : search.columns) {
                const auto column = std::ranges::find(table.columns, name, &Column::name);
                ASSERT_NE(column, table.columns.end()) << table.name << "." << name;
                EXPECT_EQ(column->type, "text") << name;
            }
        }
    }
}

// PostgreSQL cuts what is longer, without a word, and two names may become one.
TEST(DefinitionTest, namesFitTheShortestLimitOfAnyServer) {
    for (const Table& table : tables()) {
        std::vector<std::string> names{table.name};
        for (const Column& column : table.columns) names.push_back(column.name);
        for (const Index& index : table.indexes) names.push_back(table.name + "_" + index.name);
        for (const Index& search : table.searches) names.push_back(table.name + "_" + search.name);
        for (const std::string& name : names) {
            EXPECT_LE(name.size(), 63u) << name;
            EXPECT_LE(characters(name), 64u) << name;
        }
    }
}

TEST(DefinitionTest, rowsAreWrittenInTheFamilysWords) {
    const Rows rows{{"Mセクション", {{"コード", "001"}, {"名称", "'甲'"}}}, {"Mセクション", {{"コード", "002"}}}};
    EXPECT_EQ(insertStatements("main", rows),
              std::vector<std::string>{"INSERT INTO Mセクション (コード,名称,稼動状況区分) VALUES "
                                       "('001','''甲''',NULL),('002',NULL,NULL)"});
    EXPECT_EQ(insertStatements("main", rows, Dialect::postgresql),
              std::vector<std::string>{R"(INSERT INTO "Mセクション" ("コード","名称","稼動状況区分") VALUES )"
                                       "('001','''甲''',NULL),('002',NULL,NULL)"});
    EXPECT_EQ(insertStatements("main", rows, Dialect::sqlServer),
              std::vector<std::string>{"INSERT INTO [Mセクション] ([コード],[名称],[稼動状況区分]) VALUES "
                                       "(N'001',N'''甲''',NULL),(N'002',NULL,NULL)"});
    EXPECT_EQ(insertStatements("main", rows, Dialect::oracle),
              (std::vector<std::string>{
                  R"(INSERT INTO "Mセクション" ("コード","名称","稼動状況区分") VALUES ('001','''甲''',NULL))",
                  R"(INSERT INTO "Mセクション" ("コード","名称","稼動状況区分") VALUES ('002',NULL,NULL))"}));
}

TEST(DefinitionTest, aTableIsDroppedByItsName) {
    EXPECT_EQ(dropStatement("T名簿", Dialect::sqlite), "DROP TABLE T名簿");
    EXPECT_EQ(dropStatement("T名簿", Dialect::postgresql), "DROP TABLE \"T名簿\"");
}

} // namespace kestrel::setup
