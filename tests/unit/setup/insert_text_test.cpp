#include "setup/insert_text.hpp"

#include <gtest/gtest.h>

namespace kestrel::setup {

namespace {

std::string shown(const std::optional<InsertText>& insert) {
    if (!insert) return "nothing";
    std::string text = insert->table + ":";
    for (const InsertValue& value : insert->values) text += " " + value.column + "=" + value.value;
    return text;
}

} // namespace

TEST(InsertTextTest, isReadInEachFormThatTheSuiteSends) {
    EXPECT_EQ(shown(readInsert("INSERT INTO [T名簿明細] ([事業所コード],[名簿宛先No]) VALUES ('001','000003')")),
              "T名簿明細: 事業所コード=001 名簿宛先No=000003");
    EXPECT_EQ(shown(readInsert("INSERT INTO M得意先 (コード,定価掛率,名称A) VALUES ('000001', 0, '青葉')")),
              "M得意先: コード=000001 定価掛率=0 名称A=青葉");
    EXPECT_EQ(shown(readInsert("INSERT INTO T (a,b,c,d)VALUES (-1.5,NULL,'','x')")), "T: a=-1.5 b=NULL c= d=x");
}

TEST(InsertTextTest, keepsWhatStandsInALiteral) {
    const auto insert =
        readInsert("INSERT INTO [T] ([a],[b],[c]) VALUES ('It''s','一行目\r\n),(''x'',''y'') VALUES','𠮷😀')");
    ASSERT_TRUE(insert);
    EXPECT_EQ(insert->value("a"), "It's");
    EXPECT_EQ(insert->value("b"), "一行目\r\n),('x','y') VALUES");
    EXPECT_EQ(insert->value("c"), "𠮷😀");
    EXPECT_EQ(insert->value("d"), "");
    EXPECT_TRUE(insert->has("c"));
    EXPECT_FALSE(insert->has("d"));
}

TEST(InsertTextTest, isNothingForAnyOtherText) {
    for (const char* text :
         {"", "SELECT 1", "INSERT INTO T (a) VALUES ('1'", "INSERT INTO T (a) VALUES ('1','2')",
          "INSERT INTO T (a,b) VALUES ('1')", "INSERT INTO T (a) VALUES ('1') ; DELETE FROM T",
          "INSERT INTO T (a) VALUES ('06'1111'2222')", "INSERT INTO T (a) VALUES ('1' 2)",
          "INSERT INTO T (a) VALUES ()", "INSERT INTO T (a) VALUES (2 '1')", "INSERT INTO T () VALUES ()",
          "INSERT INTO T (a,) VALUES ('1')", "INSERT INTO T (a) SELECT 1", "INSERT INTO T (a) VALUES ('1'),('2')",
          "INSERT INTO", "INSERT INTO T (a) VALUES", "INSERT INTO T (a) VALUES ("})
        EXPECT_EQ(shown(readInsert(text)), "nothing") << text;
}

TEST(InsertTextTest, isReadWithApostrophesThatWereNotDoubled) {
    const auto insert = readBrokenInsert("INSERT INTO [T名簿明細] ([宛先名称A],[宛先電話],[宛先摘要]) VALUES "
                                         "('花子''s','06'1111'2222','''')");
    ASSERT_TRUE(insert);
    EXPECT_EQ(insert->value("宛先名称A"), "花子's");
    EXPECT_EQ(insert->value("宛先電話"), "06'1111'2222");
    EXPECT_EQ(insert->value("宛先摘要"), "'");
    EXPECT_EQ(insert->statement, "INSERT INTO [T名簿明細] ([宛先名称A],[宛先電話],[宛先摘要]) VALUES "
                                 "('花子''s','06''1111''2222','''')");
}

TEST(InsertTextTest, isNotGuessedWhereAValueHoldsWhatStandsBetweenTwo) {
    EXPECT_EQ(shown(readBrokenInsert("INSERT INTO T (a,b) VALUES ('06'1','x','y')")), "nothing");
    EXPECT_EQ(shown(readBrokenInsert("INSERT INTO T (a,b) VALUES ('06'1')")), "nothing");
    EXPECT_EQ(shown(readBrokenInsert("INSERT INTO T (a,b) VALUES ('06'1','x'")), "nothing");
    EXPECT_EQ(shown(readBrokenInsert("INSERT INTO T (a,b) VALUES")), "nothing");
    EXPECT_EQ(shown(readBrokenInsert("INSERT INTO T (a,b) VALUES ('")), "nothing");
    EXPECT_EQ(shown(readBrokenInsert("DELETE FROM T WHERE a = '1")), "nothing");
}

TEST(InsertTextTest, changesOneValueAndNothingElse) {
    const auto insert = readInsert("INSERT INTO [T] ([a],[b],[c])  VALUES  ('1','000003',0)");
    ASSERT_TRUE(insert);
    EXPECT_EQ(statementWith(*insert, "b", "000010"), "INSERT INTO [T] ([a],[b],[c])  VALUES  ('1','000010',0)");
    EXPECT_EQ(statementWith(*insert, "c", "It's"), "INSERT INTO [T] ([a],[b],[c])  VALUES  ('1','000003','It''s')");
}

} // namespace kestrel::setup
