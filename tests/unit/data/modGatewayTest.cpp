#include "data/modGateway.hpp"

#include "installed.hpp"

namespace kestrel {

namespace {

using Lines = std::vector<std::string>;

class Gateway : public Installed {
protected:
    Gateway() {
        EXPECT_TRUE(openSystemDatabases());
        EXPECT_TRUE(openMainDatabase());
    }
    database::RecordSet slot;
};

} // namespace

TEST_F(Gateway, ReadWithoutRowsIsFalseAndLeavesNoLine) {
    EXPECT_FALSE(openRecordset(slot, "SELECT * FROM M部門 WHERE コード = '999'", false));
    EXPECT_TRUE(slot.eof());
    EXPECT_EQ(history(), Lines{});
}

TEST_F(Gateway, ReadWithoutRowsIsLoggedAllTheSameWhenAskedFor) {
    EXPECT_FALSE(openRecordset(slot, "SELECT * FROM M部門 WHERE 名称 = 'x'", true));
    EXPECT_EQ(history(), Lines{"出力終了 SELECT * FROM M部門 WHERE 名称 = ''x''"});
}

TEST_F(Gateway, ReadWithRowsIsTrueAndStandsOnTheFirst) {
    ASSERT_TRUE(openRecordset(slot, "SELECT * FROM M事業所 ORDER BY コード", false));
    EXPECT_EQ(slot.text("名称"), "全社");
}

TEST_F(Gateway, FailingMainStatementLeavesOneErrorLineAndNoQueryLine) {
    EXPECT_FALSE(executeSql("DELETE FROM NoSuchTable", true));
    ASSERT_EQ(history().size(), 1U);
    EXPECT_TRUE(history()[0].starts_with("エラー ")) << history()[0];
    EXPECT_TRUE(history()[0].ends_with("DELETE FROM NoSuchTable")) << history()[0];
}

TEST_F(Gateway, ErrorLineIsTheDescriptionDirectlyFollowedByTheStatement) {
    database::breakStatements(database::Role::main, "M部門");
    EXPECT_FALSE(openRecordset(slot, "SELECT * FROM M部門", true));
    EXPECT_EQ(history(), Lines{"エラー broken on purposeSELECT * FROM M部門"});
}

TEST_F(Gateway, FailingLocalStatementAboutTheHistoryIsReportedNowhere) {
    EXPECT_FALSE(executeLocalSql("DELETE FROM プログラム稼動履歴x"));
    EXPECT_FALSE(openLocalRecordset(slot, "SELECT NoSuchColumn FROM プログラム稼動履歴"));
    EXPECT_FALSE(executeLocalSqlLogged("UPDATE プログラム稼動履歴 SET NoSuchColumn = ''"));
    EXPECT_EQ(history(), Lines{});
}

TEST_F(Gateway, OtherFailingLocalStatementsLeaveTheirErrorLine) {
    EXPECT_FALSE(executeLocalSql("DELETE FROM NoSuchTable"));
    EXPECT_FALSE(openLocalRecordset(slot, "SELECT * FROM NoSuchTable"));
    EXPECT_FALSE(executeLocalSqlLogged("UPDATE NoSuchTable SET a = ''"));
    EXPECT_EQ(history().size(), 3U);
    for (const auto& line : history()) EXPECT_TRUE(line.starts_with("エラー ")) << line;
}

TEST_F(Gateway, ApostrophesInAFailingStatementKeepTheErrorLineValid) {
    database::breakStatements(database::Role::main, "O'Hara");
    EXPECT_FALSE(executeSql("DELETE FROM M部門 WHERE 名称 = 'O'Hara'", false));
    EXPECT_EQ(history(), Lines{"エラー broken on purposeDELETE FROM M部門 WHERE 名称 = ''O''Hara''"});
}

TEST_F(Gateway, OpeningASlotAgainReplacesWhatItHeld) {
    ASSERT_TRUE(openRecordset(slot, "SELECT * FROM M事業所 ORDER BY コード", false));
    ASSERT_TRUE(openRecordset(slot, "SELECT * FROM K社員区分 ORDER BY 区分 DESC", false));
    EXPECT_EQ(slot.text("名称"), "パート");
}

TEST_F(Gateway, AFailedSlotIsEmptyAndClosesHarmlessly) {
    ASSERT_TRUE(openRecordset(slot, "SELECT * FROM M事業所", false));
    EXPECT_FALSE(openRecordset(slot, "SELECT * FROM NoSuchTable", false));
    EXPECT_TRUE(slot.eof());
    slot.close();
    slot.close();
}

TEST_F(Gateway, LoggedWritesLeaveTheirTextTwiceQuoted) {
    EXPECT_TRUE(executeSql("UPDATE M部門 SET 名称 = 'a''b'  ", true));
    EXPECT_TRUE(executeLocalSqlLogged("UPDATE 動作環境定義 SET バックアップ方法 = '1'"));
    EXPECT_TRUE(executeSql("UPDATE M部門 SET 名称 = 'c'", false));
    EXPECT_TRUE(executeLocalSql("UPDATE 動作環境定義 SET バックアップ方法 = '2'"));
    EXPECT_EQ(history(), (Lines{"出力終了 UPDATE M部門 SET 名称 = ''a''''b''",
                                "出力終了 UPDATE 動作環境定義 SET バックアップ方法 = ''1''"}));
}

TEST_F(Gateway, OfSeveralStatementsInOneTextNothingRuns) {
    EXPECT_FALSE(executeSql("DELETE FROM M部門; DELETE FROM Mセクション", false));
    EXPECT_EQ(rows(path(setup::mainFile), "SELECT コード FROM M部門").size(), 1U);
    EXPECT_EQ(rows(path(setup::mainFile), "SELECT コード FROM Mセクション").size(), 1U);
    EXPECT_EQ(history().size(), 1U);
}

TEST_F(Gateway, AfterTheEndNothingIsSentAndEverythingIsFalse) {
    const auto before = journal::entries().size();
    screen::endProcess(0);
    EXPECT_FALSE(openRecordset(slot, "SELECT * FROM M部門", true));
    EXPECT_FALSE(executeSql("DELETE FROM M部門", true));
    EXPECT_FALSE(openLocalRecordset(slot, "SELECT * FROM 動作環境定義"));
    EXPECT_FALSE(executeLocalSql("DELETE FROM 動作環境定義"));
    EXPECT_FALSE(executeLocalSqlLogged("DELETE FROM 動作環境定義"));
    writeErrorHistory("too late");
    EXPECT_EQ(journal::entries().size(), before);
}

} // namespace kestrel
