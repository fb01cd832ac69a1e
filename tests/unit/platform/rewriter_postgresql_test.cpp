#include "platform/database/rewriter.hpp"

#include <gtest/gtest.h>

namespace kestrel::database {

namespace {

struct Case {
    const char* name;
    const char *from, *to;
};

void PrintTo(const Case& which, std::ostream* out) {
    *out << which.name;
}

std::string postgresql(std::string_view sql) {
    return rewrite(sql, Dialect::postgresql);
}

class RewritesForPostgresql : public testing::TestWithParam<Case> {};

TEST_P(RewritesForPostgresql, toTheServersText) {
    EXPECT_EQ(postgresql(GetParam().from), GetParam().to);
}

const Case names[] = {
    {"bare and in brackets", "INSERT INTO [T閲覧] (事業所コード,[閲覧No]) VALUES ('1',NULL)",
     R"(INSERT INTO "T閲覧" ("事業所コード","閲覧No") VALUES ('1',NULL))"},
    {"with a qualifier and a star", "SELECT T名簿.*, M担当者.氏名 AS 担当者名 FROM T名簿",
     R"(SELECT "T名簿".*, "M担当者"."氏名" AS "担当者名" FROM "T名簿")"},
    {"all in ASCII", "SELECT SEQNo, ID FROM b WHERE db = 'A'", R"(SELECT "SEQNo", "ID" FROM "b" WHERE "db" = 'A')"},
    {"of a table without a blank in front of its columns", "INSERT INTO Mメーカ(コード)VALUES('1')",
     R"(INSERT INTO "Mメーカ"("コード")VALUES('1'))"},
    {"of a table with a schema", "INSERT INTO s.t(x) VALUES (1)", R"(INSERT INTO "s"."t"("x") VALUES (1))"},
    {"in double quotes already", R"(SELECT "a" FROM "B" WHERE "c""d" = '')",
     R"(SELECT "a" FROM "B" WHERE "c""d" = '')"},
    {"a quote within brackets", "SELECT [a\"b] FROM [c d]", R"(SELECT "a""b" FROM "c d")"},
    {"a word behind a dot or AS", "SELECT a.TOP, a.Order AS Group FROM a",
     R"(SELECT "a"."TOP", "a"."Order" AS "Group" FROM "a")"},
    {"functions", "SELECT COUNT(*) AS 事業所件数, MAX (連番) FROM M事業所",
     R"(SELECT COUNT(*) AS "事業所件数", MAX ("連番") FROM "M事業所")"},
    {"words in any letter case", "select a from b where c is not null order by d desc",
     R"(select "a" from "b" where "c" is not null order by "d" desc NULLS LAST)"},
    {"an alias without AS", "SELECT p.x FROM a p", R"(SELECT "p"."x" FROM "a" "p")"},
    {"the type of a CAST", "SELECT CAST(a AS INTEGER) AS b, CAST((c) AS VARCHAR(8)) FROM d",
     R"(SELECT CAST("a" AS INTEGER) AS "b", CAST(("c") AS VARCHAR(8)) FROM "d")"},
    {"a parenthesis behind a CAST", "SELECT (SELECT CAST(a AS INTEGER) FROM b AS c) AS d FROM e",
     R"(SELECT (SELECT CAST("a" AS INTEGER) FROM "b" AS "c") AS "d" FROM "e")"},
    {"of a recursive read",
     "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 9) INSERT INTO a (b) SELECT 'x' || I "
     "FROM N",
     R"(WITH RECURSIVE "N"("I") AS (SELECT 1 UNION ALL SELECT "I" + 1 FROM "N" WHERE "I" < 9) INSERT INTO "a" ("b") SELECT 'x' || "I" FROM "N")"},
    {"of a read with a name of its own", "WITH N(I) AS (SELECT 1) SELECT I FROM N",
     R"(WITH "N"("I") AS (SELECT 1) SELECT "I" FROM "N")"},
    {"of a new table", "CREATE TABLE a AS SELECT * FROM b", R"(CREATE TABLE "a" AS SELECT * FROM "b")"},
    {"of a changed table", "ALTER TABLE Mセクション RENAME COLUMN 名称 TO 呼称",
     R"(ALTER TABLE "Mセクション" RENAME COLUMN "名称" TO "呼称")"},
    {"of an UPDATE and a DELETE", "UPDATE A番号情報 SET  連番 = '1' WHERE A番号情報.番号ID = '2'; DELETE FROM 使用状況",
     R"(UPDATE "A番号情報" SET  "連番" = '1' WHERE "A番号情報"."番号ID" = '2'; DELETE FROM "使用状況")"},
    {"among blanks and comments", " SELECT\ta -- b\n/* c */ FROM d ", " SELECT\t\"a\" -- b\n/* c */ FROM \"d\" "},
};

const Case literals[] = {
    {"opaque", "SELECT 'a b', 'it''s [x] TOP 1 LIKE' FROM c", R"(SELECT 'a b', 'it''s [x] TOP 1 LIKE' FROM "c")"},
    {"a backslash is one", R"(SELECT 'C:\a\' FROM b WHERE c = '\')", R"(SELECT 'C:\a\' FROM "b" WHERE "c" = '\')"},
    {"with a letter of their own", "SELECT N'x', E'y' FROM a", R"(SELECT N'x', E'y' FROM "a")"},
};

const Case limits[] = {
    {"behind everything", "SELECT TOP 1 コード FROM M得意先 WHERE コード < '9' ORDER BY コード DESC",
     R"(SELECT "コード" FROM "M得意先" WHERE "コード" < '9' ORDER BY "コード" DESC NULLS LAST LIMIT 1)"},
    {"of a subquery", "SELECT a FROM b WHERE c IN (SELECT TOP 2 d FROM e)",
     R"(SELECT "a" FROM "b" WHERE "c" IN (SELECT "d" FROM "e" LIMIT 2))"},
};

const Case likes[] = {
    {"with a literal", "SELECT a FROM b WHERE c LIKE '%x%' AND d = '1'",
     R"(SELECT "a" FROM "b" WHERE "c" ILIKE '%x%' ESCAPE '' AND "d" = '1')"},
    {"at the end", "SELECT a FROM b WHERE c LIKE  'x_'", R"(SELECT "a" FROM "b" WHERE "c" ILIKE  'x_' ESCAPE '')"},
    {"turned round, in parentheses", "SELECT a FROM b WHERE (c NOT LIKE 'x' OR d like 'y')",
     R"(SELECT "a" FROM "b" WHERE ("c" NOT ILIKE 'x' ESCAPE '' OR "d" ILIKE 'y' ESCAPE ''))"},
    {"in a CASE, a list and in front of a semicolon",
     "SELECT CASE WHEN a LIKE 'x' THEN 1 END, b LIKE 'y', c FROM d WHERE e LIKE 'z';",
     R"(SELECT CASE WHEN "a" ILIKE 'x' ESCAPE '' THEN 1 END, "b" ILIKE 'y' ESCAPE '', "c" FROM "d" WHERE "e" ILIKE 'z' ESCAPE '';)"},
    {"with an ESCAPE of its own", R"(SELECT a FROM b WHERE c LIKE 'x!%' ESCAPE '!')",
     R"(SELECT "a" FROM "b" WHERE "c" ILIKE 'x!%' ESCAPE '!')"},
    {"with a pattern that is put together", "SELECT a FROM b WHERE c LIKE '%' || d AND e LIKE f",
     R"(SELECT "a" FROM "b" WHERE "c" ILIKE '%' || "d" AND "e" ILIKE "f")"},
    {"with a condition of the same text", "SELECT a FROM b WHERE c = 'LIKE' AND d = 'x'",
     R"(SELECT "a" FROM "b" WHERE "c" = 'LIKE' AND "d" = 'x')"},
};

const Case joins[] = {
    {"from the right, nested",
     "SELECT TOP 1 T名簿.* FROM M部門 RIGHT JOIN (M担当者 RIGHT JOIN T名簿 ON M担当者.コード = T名簿.担当者コード) ON "
     "M部門.コード = T名簿.部門コード WHERE T名簿.名簿No = '1'",
     R"(SELECT "T名簿".* FROM "T名簿" LEFT JOIN "M担当者" ON "M担当者"."コード" = "T名簿"."担当者コード" LEFT JOIN "M部門" ON )"
     R"("M部門"."コード" = "T名簿"."部門コード" WHERE "T名簿"."名簿No" = '1' LIMIT 1)"},
    {"marked", "SELECT a.x FROM b,a WHERE b.k(+) = a.k AND a.y LIKE 'z' ORDER BY a.x",
     R"(SELECT "a"."x" FROM "a" LEFT JOIN "b" ON "b"."k" = "a"."k" WHERE "a"."y" ILIKE 'z' ESCAPE '' ORDER BY "a"."x" NULLS FIRST)"},
    {"marked, with two bases", "SELECT a.x FROM a,b,c WHERE c.k(+)=a.k AND a.k=b.k",
     R"(SELECT "a"."x" FROM "a" CROSS JOIN "b" LEFT JOIN "c" ON "c"."k"="a"."k" WHERE "a"."k"="b"."k")"},
    {"with a comma alone", "SELECT a.x FROM a, b WHERE a.k = b.k",
     R"(SELECT "a"."x" FROM "a", "b" WHERE "a"."k" = "b"."k")"},
    {"of the server", "SELECT a.x FROM a INNER JOIN b ON a.k = b.k",
     R"(SELECT "a"."x" FROM "a" INNER JOIN "b" ON "a"."k" = "b"."k")"},
};

// What is wrong stays so.
const Case wrong[] = {
    {"another table in WHERE", "SELECT A番号情報.* FROM A番号情報 WHERE B.番号ID = '1'",
     R"(SELECT "A番号情報".* FROM "A番号情報" WHERE "B"."番号ID" = '1')"},
    {"two WHERE", "SELECT TOP 1 a FROM b WHERE c LIKE 'x' WHERE d LIKE 'y'",
     R"(SELECT "a" FROM "b" WHERE "c" ILIKE 'x' ESCAPE '' WHERE "d" ILIKE 'y' ESCAPE '' LIMIT 1)"},
    {"an empty condition", "SELECT a FROM b WHERE ()", R"(SELECT "a" FROM "b" WHERE ())"},
    {"the limit of one member", "SELECT TOP 1 a FROM b UNION SELECT c FROM d",
     R"(SELECT TOP 1 "a" FROM "b" UNION SELECT "c" FROM "d")"},
    {"a mark that isn't understood", "SELECT a.x FROM a,b WHERE b.k(+)=a.k OR k(+)='1'",
     R"(SELECT "a"."x" FROM "a","b" WHERE "b"."k"(+)="a"."k" OR "k"(+)='1')"},
    {"a literal that ends early", "SELECT a FROM b WHERE c = 'O'Neil'x'",
     R"(SELECT "a" FROM "b" WHERE "c" = 'O'Neil'x')"},
    {"a literal that doesn't end", "SELECT TOP 1 a FROM [b] WHERE c = 'x", "SELECT TOP 1 a FROM [b] WHERE c = 'x"},
};

// T.K can't be null; in U a column of that name can.
const Case orders[] = {
    {"both ways", "SELECT a FROM T ORDER BY a, b DESC, c ASC",
     R"(SELECT "a" FROM "T" ORDER BY "a" NULLS FIRST, "b" DESC NULLS LAST, "c" ASC NULLS FIRST)"},
    {"never null", "SELECT K FROM T ORDER BY K DESC,T.K, [T].[K]",
     R"(SELECT "K" FROM "T" ORDER BY "K" DESC,"T"."K", "T"."K")"},
    {"null in another table", "SELECT K FROM U ORDER BY K,T.K,U.K",
     R"(SELECT "K" FROM "U" ORDER BY "K" NULLS FIRST,"T"."K","U"."K" NULLS FIRST)"},
    {"of two tables nobody knows", "SELECT K FROM T,U ORDER BY K",
     R"(SELECT "K" FROM "T","U" ORDER BY "K" NULLS FIRST)"},
    {"letter case of the name counts", "SELECT k FROM T ORDER BY k", R"(SELECT "k" FROM "T" ORDER BY "k" NULLS FIRST)"},
    {"in front of the limit", "SELECT TOP 5 a FROM T WHERE b = '1' ORDER BY a DESC",
     R"(SELECT "a" FROM "T" WHERE "b" = '1' ORDER BY "a" DESC NULLS LAST LIMIT 5)"},
    {"in front of an own limit", "SELECT a FROM T ORDER BY a LIMIT 5",
     R"(SELECT "a" FROM "T" ORDER BY "a" NULLS FIRST LIMIT 5)"},
    {"what is no plain column", "SELECT a FROM T ORDER BY 1, MAX(a) DESC, a || b",
     R"(SELECT "a" FROM "T" ORDER BY 1, MAX("a") DESC, "a" || "b")"},
    {"an inner one", "SELECT a FROM (SELECT TOP 1 K FROM T ORDER BY b) c",
     R"(SELECT "a" FROM (SELECT "K" FROM "T" ORDER BY "b" NULLS FIRST LIMIT 1) "c")"},
    {"groups are not ordered", "SELECT a FROM T GROUP BY a HAVING a > '1'",
     R"(SELECT "a" FROM "T" GROUP BY "a" HAVING "a" > '1')"},
};

class OrdersForPostgresql : public testing::TestWithParam<Case> {};

TEST_P(OrdersForPostgresql, nullsAsTheLeast) {
    RequiredColumns required;
    required.add("T", "K");
    EXPECT_EQ(rewrite(GetParam().from, Dialect::postgresql, &required), GetParam().to);
    for (Dialect own : {Dialect::sqlServer, Dialect::mariadb})
        EXPECT_EQ(rewrite(GetParam().from, own, &required).find(" NULLS "), std::string::npos) << "its own way";
}

std::string caseName(const testing::TestParamInfo<Case>& info) {
    return std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(Names, RewritesForPostgresql, testing::ValuesIn(names), caseName);
INSTANTIATE_TEST_SUITE_P(Literals, RewritesForPostgresql, testing::ValuesIn(literals), caseName);
INSTANTIATE_TEST_SUITE_P(Limits, RewritesForPostgresql, testing::ValuesIn(limits), caseName);
INSTANTIATE_TEST_SUITE_P(Likes, RewritesForPostgresql, testing::ValuesIn(likes), caseName);
INSTANTIATE_TEST_SUITE_P(Joins, RewritesForPostgresql, testing::ValuesIn(joins), caseName);
INSTANTIATE_TEST_SUITE_P(Orders, OrdersForPostgresql, testing::ValuesIn(orders), caseName);
INSTANTIATE_TEST_SUITE_P(Wrong, RewritesForPostgresql, testing::ValuesIn(wrong), caseName);

} // namespace

} // namespace kestrel::database
