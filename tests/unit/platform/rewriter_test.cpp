#include "platform/database/rewriter.hpp"

#include <gtest/gtest.h>

namespace kestrel::database {

namespace {

std::string sqlite(std::string_view sql) {
    return rewrite(sql, Dialect::sqlite);
}

struct Case {
    const char* name;
    std::string from, to;
};

void PrintTo(const Case& which, std::ostream* out) {
    *out << which.name;
}

class Rewrites : public testing::TestWithParam<Case> {};

TEST_P(Rewrites, toTheEnginesText) {
    EXPECT_EQ(sqlite(GetParam().from), GetParam().to);
}

const Case top[] = {
    {"behind the last token", "SELECT TOP 1 * FROM T名簿", "SELECT * FROM T名簿 LIMIT 1"},
    {"behind ORDER BY", "SELECT TOP 1 番号基準日付,名簿No FROM T名簿 ORDER BY 番号基準日付 , 名簿No",
     "SELECT 番号基準日付,名簿No FROM T名簿 ORDER BY 番号基準日付 , 名簿No LIMIT 1"},
    {"several blanks", "SELECT  TOP   1000  a FROM b", "SELECT  a FROM b LIMIT 1000"},
    {"any letter case", "select top 3 a from b", "select a from b LIMIT 3"},
    {"with DISTINCT", "SELECT DISTINCT TOP 2 a FROM b", "SELECT DISTINCT a FROM b LIMIT 2"},
    {"in front of a semicolon and blanks", "SELECT TOP 1 a FROM b ; ", "SELECT a FROM b LIMIT 1 ; "},
    {"in front of a closing comment", "SELECT TOP 1 a FROM b -- c", "SELECT a FROM b LIMIT 1 -- c"},
    {"inside a subquery", "SELECT a FROM b WHERE c IN (SELECT TOP 1 d FROM e ORDER BY f) AND g = '1'",
     "SELECT a FROM b WHERE c IN (SELECT d FROM e ORDER BY f LIMIT 1) AND g = '1'"},
    {"inside and outside", "SELECT TOP 5 a FROM (SELECT TOP 9 a FROM b) ORDER BY a",
     "SELECT a FROM (SELECT a FROM b LIMIT 9) ORDER BY a LIMIT 5"},
    {"among the columns", "SELECT TOP 2 (SELECT TOP 1 x FROM y) AS z FROM b",
     "SELECT (SELECT x FROM y LIMIT 1) AS z FROM b LIMIT 2"},
    {"of an INSERT", "INSERT INTO a SELECT TOP 1 b FROM c", "INSERT INTO a SELECT b FROM c LIMIT 1"},
    {"with two WHERE, which the engine has to refuse", "SELECT TOP 1000 a FROM b WHERE c = '1' WHERE d = '2'",
     "SELECT a FROM b WHERE c = '1' WHERE d = '2' LIMIT 1000"},
};

const Case brackets[] = {
    {"every name", "INSERT INTO [T閲覧] ([事業所コード],[閲覧No]) VALUES ('1',']')",
     "INSERT INTO \"T閲覧\" (\"事業所コード\",\"閲覧No\") VALUES ('1',']')"},
    {"a quote within", "SELECT [a\"b] FROM c", "SELECT \"a\"\"b\" FROM c"},
    {"with a qualifier", "SELECT [T名簿].[名簿No] FROM [T名簿]", "SELECT \"T名簿\".\"名簿No\" FROM \"T名簿\""},
    {"a keyword", "UPDATE a SET [order] = '1'", "UPDATE a SET \"order\" = '1'"},
    {"among joins", "SELECT [A].x FROM [B] RIGHT JOIN [A] ON [B].k=[A].k",
     "SELECT \"A\".x FROM \"A\" LEFT JOIN \"B\" ON \"B\".k=\"A\".k"},
};

const Case right[] = {
    {"one",
     "SELECT T名簿.*, M担当者.氏名 AS 担当者名 FROM M担当者 RIGHT JOIN T名簿 ON M担当者.コード = T名簿.担当者コード",
     "SELECT T名簿.*, M担当者.氏名 AS 担当者名 FROM T名簿 LEFT JOIN M担当者 ON M担当者.コード = T名簿.担当者コード"},
    {"three, nested",
     "SELECT TOP 1 T名簿.* FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 RIGHT JOIN T名簿 ON M担当者.コード = "
     "T名簿.担当者コード) ON M部門.コード = T名簿.部門コード) ON Mセクション.コード = T名簿.セクションコード WHERE "
     "T名簿.名簿No = '1'",
     "SELECT T名簿.* FROM T名簿 LEFT JOIN M担当者 ON M担当者.コード = T名簿.担当者コード LEFT JOIN M部門 ON "
     "M部門.コード = "
     "T名簿.部門コード LEFT JOIN Mセクション ON Mセクション.コード = T名簿.セクションコード WHERE T名簿.名簿No = '1' "
     "LIMIT 1"},
    {"OUTER, aliases, any letter case", "SELECT a.x FROM B AS b right outer join A a on b.k = a.k order by 1",
     "SELECT a.x FROM A a LEFT JOIN B AS b ON b.k = a.k order by 1"},
    {"over an inner join", "SELECT a.x FROM C RIGHT JOIN (A INNER JOIN B ON A.k = B.k) ON C.k = A.k",
     "SELECT a.x FROM A INNER JOIN B ON A.k = B.k LEFT JOIN C ON C.k = A.k"},
    {"in parentheses on the left", "SELECT a.x FROM (B RIGHT JOIN A ON B.k = A.k) LEFT JOIN C ON C.k = A.k",
     "SELECT a.x FROM A LEFT JOIN B ON B.k = A.k LEFT JOIN C ON C.k = A.k"},
    {"in a subquery", "SELECT x FROM D WHERE EXISTS (SELECT * FROM B RIGHT JOIN A ON B.k = A.k WHERE A.k = D.k)",
     "SELECT x FROM D WHERE EXISTS (SELECT * FROM A LEFT JOIN B ON B.k = A.k WHERE A.k = D.k)"},
    {"a condition in parentheses and of several parts",
     "SELECT a.x FROM B RIGHT JOIN A ON (B.k = A.k AND (B.l = A.l OR B.m = 'JOIN')) WHERE A.x > ''",
     "SELECT a.x FROM A LEFT JOIN B ON (B.k = A.k AND (B.l = A.l OR B.m = 'JOIN')) WHERE A.x > ''"},
    {"with two WHERE", "SELECT a.x FROM B RIGHT JOIN A ON B.k=A.k WHERE A.x='1' WHERE B.y='2'",
     "SELECT a.x FROM A LEFT JOIN B ON B.k=A.k WHERE A.x='1' WHERE B.y='2'"},
};

const Case marked[] = {
    {"three",
     "SELECT TOP 1000 M担当者.コード FROM Mセクション,M部門,M事業所,M担当者 WHERE M事業所.コード(+) = "
     "M担当者.事業所コード AND "
     "M部門.コード(+) = M担当者.部門コード AND Mセクション.コード(+) = M担当者.セクションコード AND (M担当者.在籍区分 "
     "= '0' OR "
     "M担当者.在籍区分 = '1') ORDER BY M担当者.コード",
     "SELECT M担当者.コード FROM M担当者 LEFT JOIN Mセクション ON Mセクション.コード = M担当者.セクションコード LEFT "
     "JOIN M部門 "
     "ON M部門.コード = M担当者.部門コード LEFT JOIN M事業所 ON M事業所.コード = M担当者.事業所コード WHERE "
     "(M担当者.在籍区分 = "
     "'0' OR M担当者.在籍区分 = '1') ORDER BY M担当者.コード LIMIT 1000"},
    {"nothing left of WHERE", "SELECT a.x FROM b,a WHERE b.k(+) = a.k ORDER BY a.x",
     "SELECT a.x FROM a LEFT JOIN b ON b.k = a.k ORDER BY a.x"},
    {"on the right side", "SELECT a.x FROM a, b WHERE a.k = b.k (+)", "SELECT a.x FROM a LEFT JOIN b ON a.k = b.k"},
    {"two conditions for one table, one with a literal",
     "SELECT a.x FROM a,b WHERE b.k(+)=a.k AND a.x>'1' AND b.l(+)='5' AND a.y BETWEEN 1 AND 2",
     "SELECT a.x FROM a LEFT JOIN b ON b.k=a.k AND b.l='5' WHERE a.x>'1' AND a.y BETWEEN 1 AND 2"},
    {"a chain against the order of the list", "SELECT a.x FROM c,b,a WHERE c.k(+)=b.k AND b.k(+)=a.k",
     "SELECT a.x FROM a LEFT JOIN b ON b.k=a.k LEFT JOIN c ON c.k=b.k"},
    {"two bases", "SELECT a.x FROM a,b,c WHERE c.k(+)=a.k AND a.k=b.k",
     "SELECT a.x FROM a, b LEFT JOIN c ON c.k=a.k WHERE a.k=b.k"},
    {"aliases and brackets", "SELECT p.x FROM [a] p, b AS q WHERE q.[k](+) = p.k",
     "SELECT p.x FROM \"a\" p LEFT JOIN b AS q ON q.\"k\" = p.k"},
    {"a CASE with AND and OR inside",
     "SELECT a.x FROM a,b WHERE b.k(+)=a.k AND CASE WHEN a.x='1' OR a.y='2' AND 1 THEN 1 ELSE 0 END = 1",
     "SELECT a.x FROM a LEFT JOIN b ON b.k=a.k WHERE CASE WHEN a.x='1' OR a.y='2' AND 1 THEN 1 ELSE 0 END = 1"},
    {"in a subquery with its own TOP",
     "SELECT x FROM d WHERE EXISTS (SELECT TOP 1 a.x FROM a,b WHERE b.k(+)=a.k AND a.k=d.k)",
     "SELECT x FROM d WHERE EXISTS (SELECT a.x FROM a LEFT JOIN b ON b.k=a.k WHERE a.k=d.k LIMIT 1)"},
};

std::string caseName(const testing::TestParamInfo<Case>& info) {
    return std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(Top, Rewrites, testing::ValuesIn(top), caseName);
INSTANTIATE_TEST_SUITE_P(Brackets, Rewrites, testing::ValuesIn(brackets), caseName);
INSTANTIATE_TEST_SUITE_P(RightJoin, Rewrites, testing::ValuesIn(right), caseName);
INSTANTIATE_TEST_SUITE_P(Marks, Rewrites, testing::ValuesIn(marked), caseName);

class PassesOn : public testing::TestWithParam<const char*> {};

TEST_P(PassesOn, byteForByte) {
    EXPECT_EQ(sqlite(GetParam()), GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PassesOn,
    testing::Values(
        "", "   ", "SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'",
        "SELECT  a ,b\n FROM\tc -- TOP 1 [x]\n WHERE d = ''",
        // Literals, quoted names and comments are opaque.
        "SELECT 'TOP 1 [x] a(+) RIGHT JOIN', 'it''s [y]' FROM a", "SELECT \"TOP 1 [x]\" FROM a WHERE b LIKE '%[z]%'",
        "SELECT a FROM b /* TOP 1 [x] */ WHERE c = 'RIGHT JOIN'",
        // Words that only look like a feature.
        "SELECT TOP FROM a", "SELECT a.TOP, RIGHTS FROM b WHERE TOP = 1", "SELECT TOP 5 PERCENT a FROM b",
        "SELECT TOP (5) a FROM b", "SELECT TOP 1a FROM b", "SELECT 1 + 2", "UPDATE a SET TOP = 1",
        // The limit of one member can't be written into a compound SELECT.
        "SELECT TOP 1 a FROM b UNION SELECT c FROM d", "SELECT a FROM b UNION ALL SELECT TOP 1 c FROM d",
        // What isn't closed is wrong, and stays so.
        "SELECT TOP 1 'a FROM b", "SELECT TOP 1 [a FROM b", "SELECT TOP 1 (a FROM b", "SELECT TOP 1 a) FROM b",
        "SELECT TOP 1 a FROM b /* c", "SELECT TOP 1 \"a FROM b",
        // Inner joins are the engine's own.
        "SELECT M得意先.コード, M担当者.氏名 AS 担当者名 FROM M担当者 INNER JOIN M得意先 ON M得意先.担当者コード = "
        "M担当者.コード",
        "SELECT a.x FROM (A INNER JOIN B ON A.k = B.k) INNER JOIN C ON C.k = A.k",
        // Right joins that no flat chain can say, or that are wrong.
        "SELECT a.x FROM A INNER JOIN B ON A.k = B.k RIGHT JOIN C ON C.k = A.k",
        "SELECT a.x FROM A LEFT JOIN (B RIGHT JOIN C ON B.k = C.k) ON A.k = C.k",
        "SELECT a.x FROM B RIGHT JOIN A USING (k)", "SELECT a.x FROM B RIGHT JOIN A",
        "SELECT a.x FROM B RIGHT JOIN A ON", "SELECT a.x FROM D, B RIGHT JOIN A ON B.k = A.k",
        "SELECT a.x FROM B RIGHT A ON B.k = A.k", "SELECT a.x FROM B NATURAL RIGHT JOIN A",
        "SELECT a.x FROM (SELECT * FROM C) RIGHT JOIN A ON 1",
        // Marks under OR, on both sides, under NOT, in parentheses, in a cycle, of unknown tables, with a second WHERE.
        "SELECT a.x FROM a,b WHERE b.k(+)=a.k OR a.x='1'",
        "SELECT a.x FROM a,b WHERE b.k(+)=a.k AND a.x='1' OR a.y='2'", "SELECT a.x FROM a,b WHERE b.k(+)=a.k(+)",
        "SELECT a.x FROM a,b WHERE NOT b.k(+)=a.k", "SELECT a.x FROM a,b WHERE (b.k(+)=a.k)",
        "SELECT a.x FROM a,b WHERE b.k(+)=a.k AND a.l(+)=b.l", "SELECT a.x FROM a,b WHERE z.k(+)=a.k",
        "SELECT a.x FROM a,b WHERE b.k(+)=a.k WHERE a.x='1'", "SELECT a.x FROM a,b WHERE k(+)=a.k",
        "SELECT a.x FROM a,b WHERE b.k(+)=a.k AND b.l(+) LIKE '%x%'", "SELECT a.x FROM a,b WHERE b.k(+)=a.k AND",
        "SELECT a.x FROM a JOIN c ON 1, b WHERE b.k(+)=a.k", "SELECT a.x FROM a,b WHERE b.k(+)=b.l",
        // A comma list without a mark is an inner join.
        "SELECT a.x FROM M担当者, M得意先 WHERE M得意先.担当者コード = M担当者.コード"));

TEST(Rewriter, rewritesTheMarksOfTheInnerSelectAloneWhenTheOuterIsNotUnderstood) {
    EXPECT_EQ(sqlite("SELECT TOP 2 x FROM d WHERE d.k(+)=1 OR x IN (SELECT a.x FROM a,b WHERE b.k(+)=a.k)"),
              "SELECT x FROM d WHERE d.k(+)=1 OR x IN (SELECT a.x FROM a LEFT JOIN b ON b.k=a.k) LIMIT 2");
}

TEST(Rewriter, survivesEveryPieceOfAText) {
    std::string sql = "SELECT TOP 1 [a].*, 'it''s' FROM c RIGHT JOIN (b RIGHT JOIN [a] ON b.k=[a].k) ON c.k=[a].k "
                      "WHERE EXISTS (SELECT TOP 2 x FROM d,e WHERE d.k(+)=e.k AND (e.l OR 1)) /* z */ ORDER BY 1;";
    for (std::size_t begin = 0; begin < sql.size(); ++begin)
        for (std::size_t length = 0; length <= sql.size() - begin; ++length)
            EXPECT_GE(sqlite(sql.substr(begin, length)).size() + 40, length / 2);
}

} // namespace

} // namespace kestrel::database
