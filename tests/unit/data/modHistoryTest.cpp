#include "data/modHistory.hpp"

#include "data/modGateway.hpp"
#include "installed.hpp"

namespace kestrel {

namespace {

using Lines = std::vector<std::string>;

class History : public Installed {
protected:
    void open() {
        ASSERT_TRUE(openSystemDatabases());
        writeRunStart();
        ASSERT_TRUE(openMainDatabase());
    }
    Lines wholeHistory() const {
        return rows(path(setup::localFile),
                    "SELECT 実行日付, プログラムID, proccounter, 摘要, 運用事業所コード, 起動担当者コード, ユーザID "
                    "FROM プログラム稼動履歴 ORDER BY proccounter");
    }
};

} // namespace

TEST_F(History, StartReadFailureAndEndAreFourLines) {
    open();
    database::RecordSet slot;
    openRecordset(slot, "SELECT コード FROM M部門", true);
    database::breakStatements(database::Role::main, "Mセクション");
    executeSql("DELETE FROM Mセクション", true);
    database::mendAll();
    writeRunEnd();
    const std::string head = "20240515 093000 | 連絡台帳入力 | 00000000000", tail = " | 000 | 00001 | operator";
    EXPECT_EQ(wholeHistory(),
              (Lines{head + "1 | 開始 " + tail, head + "2 | 出力終了 SELECT コード FROM M部門" + tail,
                     head + "3 | エラー broken on purposeDELETE FROM Mセクション" + tail, head + "4 | 終了" + tail}));
}

TEST_F(History, TheStatementOfALineHasNoBlankBeforeItsValues) {
    ASSERT_TRUE(openSystemDatabases());
    writeRunStart();
    const auto texts = sent(journal::Channel::sentLocal);
    EXPECT_EQ(texts.back(), "INSERT INTO プログラム稼動履歴 (実行日付,プログラムID,proccounter,摘要,運用事業所コード,"
                            "起動担当者コード,ユーザID)VALUES ('20240515 093000', '連絡台帳入力', '000000000001', "
                            "'開始 ', '000', '00001', 'operator')");
}

TEST_F(History, TheCommandLineIsTrimmedAndQuotedOnce) {
    installation.commandLine = "  O'Hara 名簿 ";
    open();
    EXPECT_EQ(history(), Lines{"開始 O'Hara 名簿"});
}

TEST_F(History, TheStartLineCarriesTheStaffMember) {
    local("UPDATE 動作環境定義 SET 起動担当者コード = NULL");
    open();
    EXPECT_EQ(staff.staffCode, "");
    EXPECT_EQ(wholeHistory(), Lines{"20240515 093000 | 連絡台帳入力 | 000000000001 | 開始  | 000 |  | operator"});
}

TEST_F(History, OneApostropheStandsAsTwoInALoggedStatement) {
    open();
    writeQueryHistory("SELECT 'x' ");
    EXPECT_EQ(history().back(), "出力終了 SELECT ''x''");
}

TEST_F(History, TheNumberRisesAlsoForALineThatFails) {
    open();
    database::breakStatements(database::Role::local, "プログラム稼動履歴");
    writeErrorHistory("lost");
    database::mendAll();
    writeErrorHistory("kept");
    EXPECT_EQ(installation.runCounter, 3);
    EXPECT_EQ(rows(path(setup::localFile), "SELECT proccounter FROM プログラム稼動履歴 WHERE 摘要 = 'エラー kept'"),
              Lines{"000000000003"});
}

TEST_F(History, AStartLineWithoutItsColumnIsDroppedQuietly) {
    local("ALTER TABLE 動作環境定義 DROP COLUMN 起動担当者コード");
    ASSERT_TRUE(openSystemDatabases());
    writeRunStart();
    EXPECT_EQ(history(), Lines{});
}

TEST_F(History, OnlyTheUpdateMonitorKeepsItsPollingOut) {
    open();
    const std::string polling = "SELECT * FROM 未集計情報";
    writeQueryHistory(polling);
    installation.programId = "更新モニタ";
    writeQueryHistory(polling);
    writeQueryHistory("SELECT 1");
    EXPECT_EQ(history(), (Lines{"開始 ", "出力終了 " + polling, "出力終了 SELECT 1"}));
}

TEST_F(History, WithoutItsEndLineTheUsageEndIsSkipped) {
    open();
    database::breakStatements(database::Role::local, "プログラム稼動履歴");
    writeRunEnd();
    EXPECT_EQ(usage(), Lines{"KESTREL | operator | 連絡台帳入力 | 20240515 093000 | "});
}

TEST_F(History, UsageOfAFirstRun) {
    open();
    EXPECT_EQ(usage(), Lines{"KESTREL | operator | 連絡台帳入力 | 20240515 093000 | "});
    platform::passTime(61);
    writeRunEnd();
    EXPECT_EQ(usage(), Lines{"KESTREL | operator | 連絡台帳入力 | 20240515 093000 | 20240515 093101"});
    EXPECT_EQ(sent(journal::Channel::sentMain),
              (Lines{"DELETE FROM 使用状況 WHERE 終了日時 < '20240415' AND 終了日時 <> ''",
                     "SELECT * FROM 使用状況 WHERE コンピュータID = 'KESTREL' AND ユーザID = 'operator'",
                     "INSERT INTO 使用状況 (コンピュータID,ユーザID,プログラムID,開始日時,終了日時)VALUES ('KESTREL', "
                     "'operator', '連絡台帳入力', '20240515 093000', '')",
                     "SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム WHERE "
                     "担当者別操作許可プログラム.担当者コード = '00001' AND 担当者別操作許可プログラム.業務メニュ = "
                     "'営業支援' AND 担当者別操作許可プログラム.プログラムID = '連絡台帳入力'",
                     "SELECT * FROM 使用状況 WHERE コンピュータID = 'KESTREL' AND ユーザID = 'operator'",
                     "UPDATE 使用状況 SET プログラムID = '連絡台帳入力', 終了日時 = '20240515 093101' WHERE "
                     "コンピュータID = 'KESTREL' AND ユーザID = 'operator'"}));
}

TEST_F(History, ALaterRunKeepsTheOldEndAndTakesTheStart) {
    main("INSERT INTO 使用状況 VALUES ('KESTREL', 'operator', '受注入力', '20240514 080000', '20240514 120000')");
    open();
    EXPECT_EQ(usage(), Lines{"KESTREL | operator | 連絡台帳入力 | 20240515 093000 | 20240514 120000"});
}

TEST_F(History, AnEndWithoutARowGetsARowOfItsOwn) {
    open();
    main("DELETE FROM 使用状況");
    writeRunEnd();
    EXPECT_EQ(usage(), Lines{"KESTREL | operator | 連絡台帳入力 |  | 20240515 093000"});
}

TEST_F(History, CleaningTakesWhatEndedMoreThanAMonthAgo) {
    main(
        "INSERT INTO 使用状況 VALUES ('A', 'u', 'p', '20230101 080000', ''), "
        "('B', 'u', 'p', '20240414 080000', '20240414 235959'), ('C', 'u', 'p', '20240415 080000', '20240415 000000')");
    open();
    EXPECT_EQ(rows(path(setup::mainFile), "SELECT コンピュータID FROM 使用状況 ORDER BY コンピュータID"),
              (Lines{"A", "C", "KESTREL"}));
}

TEST_F(History, AMonthBeforeTheEndOfMarchIsTheEndOfFebruary) {
    platform::standClock({2024, 3, 31, 9, 0, 0});
    open();
    EXPECT_EQ(sent(journal::Channel::sentMain).front(),
              "DELETE FROM 使用状況 WHERE 終了日時 < '20240229' AND 終了日時 <> ''");
}

} // namespace kestrel
