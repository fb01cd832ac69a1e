#include "platform/database/statement_shape.hpp"

#include <gtest/gtest.h>

namespace kestrel::database {

namespace {

struct Case {
    const char* sql;
    bool second, reads, limits;
};

void PrintTo(const Case& which, std::ostream* out) {
    *out << which.sql;
}

class Shapes : public testing::TestWithParam<Case> {};

TEST_P(Shapes, areSeen) {
    EXPECT_EQ(holdsSecondStatement(GetParam().sql), GetParam().second);
    EXPECT_EQ(readsRows(GetParam().sql), GetParam().reads);
    EXPECT_EQ(limitsRows(GetParam().sql), GetParam().limits);
}

constexpr bool no = false, yes = true;

INSTANTIATE_TEST_SUITE_P(
    Texts, Shapes,
    testing::Values(
        // sql, holds a second statement, reads rows, limits them
        Case{"", no, no, no}, Case{" -- SELECT", no, no, no}, Case{";", no, no, no}, Case{";SELECT 1", yes, no, no},
        Case{"SELECT a FROM b", no, yes, no}, Case{"SELECT a FROM b; ", no, yes, no},
        Case{"SELECT a FROM b;; -- c\n ; /* d */", no, yes, no}, Case{"SELECT a FROM b; DELETE FROM c", yes, yes, no},
        Case{"SELECT ';x' FROM [;y] /* ; */ WHERE \";z\" = 1 -- ;", no, yes, no},
        Case{"DELETE FROM a; SELECT b FROM c", yes, no, no}, Case{"select a from b", no, yes, no},
        Case{"  ((SELECT a FROM b))", no, yes, no}, Case{"VALUES (1), (2)", no, yes, no},
        Case{"/* a */ WITH b AS (DELETE FROM c) SELECT d FROM b", no, yes, no},
        Case{"WITH a AS (SELECT 1) INSERT INTO b SELECT * FROM a", no, no, no},
        Case{"WITH a AS (SELECT 1) UPDATE b SET c = 1", no, no, no},
        Case{"INSERT INTO a SELECT TOP 1 b FROM c", no, no, no}, Case{"INSERT INTO a (b)VALUES ('SELECT')", no, no, no},
        Case{"UPDATE a SET b = (SELECT 1)", no, no, no}, Case{"SELECT TOP 1 a FROM b", no, yes, yes},
        Case{"SELECT DISTINCT TOP 5 a FROM b ORDER BY c", no, yes, yes},
        Case{"SELECT a FROM b ORDER BY c LIMIT 1", no, yes, yes},
        Case{"SELECT a FROM b FETCH FIRST 3 ROWS ONLY", no, yes, yes},
        Case{"SELECT a FROM b FETCH NEXT 3 ROWS ONLY", no, yes, yes}, Case{"(SELECT TOP 2 a FROM b)", no, yes, yes},
        Case{"WITH a AS (SELECT 1) SELECT b FROM a LIMIT 2", no, yes, yes},
        Case{"WITH a AS (SELECT TOP 1 c FROM d) SELECT b FROM a", no, yes, no},
        Case{"SELECT a FROM b WHERE c IN (SELECT TOP 1 d FROM e)", no, yes, no},
        Case{"SELECT a FROM (SELECT b FROM c LIMIT 1)", no, yes, no}, Case{"SELECT 'LIMIT 1' FROM a", no, yes, no},
        Case{"SELECT TOP 1 a FROM b UNION SELECT c FROM d", no, yes, no},
        Case{"(SELECT TOP 1 a FROM b) UNION (SELECT c FROM d)", no, yes, no},
        Case{"SELECT a FROM b UNION SELECT c FROM d LIMIT 4", no, yes, yes},
        Case{"SELECT TOP 5 PERCENT a FROM b", no, yes, no}, Case{"SELECT a FROM b LIMIT ALL", no, yes, no},
        Case{"SELECT a.LIMIT, FETCH FROM b", no, yes, no},
        // What doesn't close tells nothing.
        Case{"SELECT TOP 1 a FROM b WHERE c = 'x; DELETE FROM d", no, no, no}, Case{"SELECT (a; b", no, no, no}));

} // namespace

} // namespace kestrel::database
