#include "platform/database/statement_form.hpp"
#include "platform/database/utf16.hpp"

#include <gtest/gtest.h>

namespace kestrel::test {

using namespace database;

namespace {

TEST(StatementForm, seesASecondStatement) {
    for (const char* one : {"DELETE FROM a", "DELETE FROM a;", "DELETE FROM a ; -- b; c", "SELECT ';' FROM \"a;b\"",
                            "SELECT 'a;b", "SELECT [a;b] FROM c;;"})
        EXPECT_FALSE(holdsSecondStatement(one)) << one;
    for (const char* two : {"DELETE FROM a;DELETE FROM b", "SELECT ';';SELECT 1", "SELECT '\\'; DELETE FROM a; --'"})
        EXPECT_TRUE(holdsSecondStatement(two)) << two;
}

TEST(StatementForm, seesWhatAnswersRows) {
    for (const char* read : {"SELECT 1", " select a FROM b", "(SELECT 1)", "WITH a AS (SELECT 1) SELECT * FROM a",
                             "VALUES (1)", "/* x */ SELECT 1"})
        EXPECT_TRUE(readsRows(read)) << read;
    for (const char* change : {"INSERT INTO a SELECT 1", "DELETE FROM a", "", "SELECT 'a", "UPDATE a SET b = 1"})
        EXPECT_FALSE(readsRows(change)) << change;
}

TEST(StatementForm, seesABound) {
    for (const char* bounded :
         {"SELECT TOP 1 a FROM b", "SELECT a FROM b LIMIT 5", "SELECT a FROM b ORDER BY a FETCH FIRST 5 ROWS ONLY"})
        EXPECT_TRUE(limitsRows(bounded)) << bounded;
    for (const char* unbounded : {"SELECT a FROM b", "SELECT 'LIMIT' FROM b",
                                  "SELECT a FROM (SELECT b FROM c LIMIT 1) d", "SELECT \"LIMIT\" FROM b"})
        EXPECT_FALSE(limitsRows(unbounded)) << unbounded;
}

TEST(Utf16, thereAndBack) {
    for (const char* text : {"", "aé漢", "\xF0\xA0\xAE\xB7\xF4\x8F\xBF\xBF", "\xEF\xBF\xBF"})
        EXPECT_EQ(utf8(utf16(text)), text);
}

TEST(Utf16, replacesWhatIsNoCharacter) {
    for (const char* text : {"\x80", "\xC3", "\xE3\x81", "\xF0\xA0\xAE", "\xFF", "\xC0\x80"})
        EXPECT_EQ(utf16(text).front(), 0xFFFD) << text;
    EXPECT_EQ(utf8(utf16("\xED\xA0\x80!")), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD!") << "half of a pair";
    EXPECT_EQ(utf8(u"\xD842!"), "\xEF\xBF\xBD!");
    EXPECT_EQ(utf8(u"\xDFB7"), "\xEF\xBF\xBD");
}

} // namespace
} // namespace kestrel::test
