#include "platform/database/rewriter.hpp"

#include <gtest/gtest.h>

namespace kestrel::database {

namespace {

struct Case {
    const char* name;
    Dialect dialect;
    const char *from, *to;
};

void PrintTo(const Case& which, std::ostream* out) {
    *out << which.name;
}

class RewritesForDialects : public testing::TestWithParam<Case> {};

TEST_P(RewritesForDialects, toTheServersText) {
    EXPECT_EQ(rewrite(GetParam().from, GetParam().dialect), GetParam().to);
}

constexpr auto server = Dialect::sqlServer, oracle = Dialect::oracle, mariadb = Dialect::mariadb;

const Case sqlServer[] = {
    {"its own words stay", server,
     "SELECT TOP 1 [a].x AS y FROM (C RIGHT JOIN (B RIGHT JOIN A AS p ON B.k = p.k) ON C.k = p.k) ORDER BY z DESC",
     "SELECT TOP 1 [a].x AS y FROM (C RIGHT JOIN (B RIGHT JOIN A AS p ON B.k = p.k) ON C.k = p.k) ORDER BY z DESC"},
    {"LIKE by capitals, with its sets", server, "SELECT a FROM b WHERE NOT (c LIKE '[a-c]%' OR b.[d] NOT LIKE '大%')",
     "SELECT a FROM b WHERE NOT (UPPER(c) LIKE UPPER('[a-c]%') OR UPPER(b.[d]) NOT LIKE UPPER(N'大%'))"},
    {"marks become a chain", server,
     "SELECT TOP 1000 [a].x FROM c,[b],a WHERE c.k(+) = a.k AND [b].l(+) = a.l AND a.y = '1' ORDER BY a.x",
     "SELECT TOP 1000 [a].x FROM a LEFT JOIN c ON c.k = a.k LEFT JOIN [b] ON [b].l = a.l WHERE a.y = '1' ORDER BY a.x"},
    {"several bases", server, "SELECT a.x FROM a,b,c WHERE c.k(+)=a.k AND a.k=b.k",
     "SELECT a.x FROM a CROSS JOIN b LEFT JOIN c ON c.k=a.k WHERE a.k=b.k"},
    {"literals beyond ASCII", server, "INSERT INTO M事業所 (名称,番号)VALUES ('大阪''支店','01')",
     "INSERT INTO M事業所 (名称,番号)VALUES (N'大阪''支店','01')"},
    {"literals without a blank in front", server, "SELECT a FROM b WHERE c LIKE'%大%' AND d<>'阪' AND e = N'支'",
     "SELECT a FROM b WHERE UPPER(c) LIKE UPPER(N'%大%') AND d<>N'阪' AND e = N'支'"},
};

const Case oracles[] = {
    {"names", oracle, "INSERT INTO [T閲覧](事業所コード) VALUES (NULL)",
     R"(INSERT INTO "T閲覧"("事業所コード") VALUES (NULL))"},
    {"a limit behind the order", oracle, "SELECT TOP 1 a FROM b ORDER BY c DESC",
     R"(SELECT "a" FROM "b" ORDER BY "c" DESC NULLS LAST FETCH FIRST 1 ROWS ONLY)"},
    {"nulls in front", oracle, "SELECT a FROM b ORDER BY b.c, d ASC",
     R"(SELECT "a" FROM "b" ORDER BY "b"."c" NULLS FIRST, "d" ASC NULLS FIRST)"},
    {"a limit within", oracle, "SELECT a FROM b WHERE c IN (SELECT TOP 2 d FROM e)",
     R"(SELECT "a" FROM "b" WHERE "c" IN (SELECT "d" FROM "e" FETCH FIRST 2 ROWS ONLY))"},
    {"marks stay", oracle, "SELECT a.x FROM b,a WHERE b.k(+) = a.k AND l (+) = a.l",
     R"(SELECT "a"."x" FROM "b","a" WHERE "b"."k"(+) = "a"."k" AND "l" (+) = "a"."l")"},
    {"right joins stay", oracle, "SELECT A.x FROM C RIGHT JOIN (B RIGHT JOIN A ON B.k = A.k) ON C.k = A.k",
     R"(SELECT "A"."x" FROM "C" RIGHT JOIN ("B" RIGHT JOIN "A" ON "B"."k" = "A"."k") ON "C"."k" = "A"."k")"},
    {"no AS in front of a table's alias", oracle,
     "SELECT p.x AS y, CAST(p.z AS NUMBER) FROM a AS p INNER JOIN [b] AS [q] ON CAST(p.k AS NUMBER) = q.k",
     R"(SELECT "p"."x" AS "y", CAST("p"."z" AS NUMBER) FROM "a" "p" INNER JOIN "b" "q" ON CAST("p"."k" AS NUMBER) = "q"."k")"},
    {"nor behind a subquery, whose columns keep it", oracle,
     "SELECT (SELECT 1 FROM c AS d) AS e FROM (SELECT x AS y FROM a) AS p WHERE CAST(p.y AS NUMBER) = 1",
     R"(SELECT (SELECT 1 FROM "c" "d") AS "e" FROM (SELECT "x" AS "y" FROM "a") "p" WHERE CAST("p"."y" AS NUMBER) = 1)"},
    {"LIKE by capitals", oracle, "SELECT a FROM b WHERE c LIKE '%x%' AND (d.e NOT LIKE  'y' OR NOT [f] LIKE 'z')",
     R"(SELECT "a" FROM "b" WHERE UPPER("c") LIKE UPPER('%x%') AND (UPPER("d"."e") NOT LIKE  UPPER('y') )"
     R"(OR NOT UPPER("f") LIKE UPPER('z')))"},
    {"LIKE without a blank behind", oracle, "SELECT a FROM b WHERE c LIKE'%x%'",
     R"(SELECT "a" FROM "b" WHERE UPPER("c") LIKE UPPER('%x%'))"},
    {"LIKE of what is no plain column stays", oracle,
     "SELECT a FROM b WHERE c || d LIKE 'x' AND e.f.g LIKE 'y' AND h LIKE i AND j LIKE 'k' ESCAPE '!' AND l(+) LIKE "
     "'m'",
     R"(SELECT "a" FROM "b" WHERE "c" || "d" LIKE 'x' AND "e"."f"."g" LIKE 'y' AND "h" LIKE "i" AND "j" LIKE 'k' )"
     R"(ESCAPE '!' AND "l"(+) LIKE 'm')"},
};

const Case mariadbs[] = {
    {"names, limit, LIKE", mariadb, "SELECT TOP 5 COUNT(*) AS n FROM [a] AS p WHERE p.b LIKE 'x\\'",
     R"(SELECT COUNT(*) AS "n" FROM "a" AS "p" WHERE UPPER("p"."b") LIKE UPPER('x\') LIMIT 5)"},
    {"right joins", mariadb, "SELECT A.x FROM C RIGHT JOIN (B RIGHT JOIN A ON B.k = A.k) ON C.k = A.k",
     R"(SELECT "A"."x" FROM "A" LEFT JOIN "B" ON "B"."k" = "A"."k" LEFT JOIN "C" ON "C"."k" = "A"."k")"},
    {"marks", mariadb, "SELECT a.x FROM a,b,c WHERE c.k(+)=a.k",
     R"(SELECT "a"."x" FROM "a" CROSS JOIN "b" LEFT JOIN "c" ON "c"."k"="a"."k")"},
};

std::string caseName(const testing::TestParamInfo<Case>& info) {
    return std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(SqlServer, RewritesForDialects, testing::ValuesIn(sqlServer), caseName);
INSTANTIATE_TEST_SUITE_P(Oracle, RewritesForDialects, testing::ValuesIn(oracles), caseName);
INSTANTIATE_TEST_SUITE_P(Mariadb, RewritesForDialects, testing::ValuesIn(mariadbs), caseName);

TEST(Rewriter, survivesEveryPieceOfATextInEveryDialect) {
    std::string sql =
        "SELECT TOP 1 [a].*, 'it''s 大' FROM c AS d RIGHT JOIN ([a] AS e) ON CAST(c.x AS y) LIKE 'z' WHERE "
        "(f LIKE '1' OR g.h NOT LIKE N'2') AND i(+) = j.k(+) AND EXISTS (SELECT TOP 2 x FROM l,m WHERE "
        "l.n(+)=m.o) /* p */ ORDER BY 1;";
    for (Dialect dialect : {Dialect::postgresql, server, oracle, mariadb})
        for (std::size_t begin = 0; begin < sql.size(); ++begin)
            for (std::size_t length = 0; length <= sql.size() - begin; ++length)
                EXPECT_GE(rewrite(sql.substr(begin, length), dialect).size() + 60, length / 2);
}

} // namespace

} // namespace kestrel::database
