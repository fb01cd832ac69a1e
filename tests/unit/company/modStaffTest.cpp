#include "company/modStaff.hpp"

#include "../data/opened.hpp"

namespace kestrel {
namespace {

using Texts = std::vector<std::string>;

class Staff : public Opened {
protected:
    Staff() { local("UPDATE 営業支援 SET 処理分類 = '2' WHERE プログラムID = '連絡台帳入力'"); }
    bool authorize() const { return authorizeStartupStaff("営業支援", "連絡台帳入力", 0); }
    std::string startupStaff() const { return localValue("SELECT 起動担当者コード FROM 動作環境定義"); }
};

TEST_F(Staff, AMemberIsLoadedWithNamePlaceLevelAndRights) {
    main("UPDATE M担当者 SET 役職コード = '09', 社員区分 = '1', 処理分類9操作許可 = '1', イメージ出力許可 = '2'");
    EXPECT_TRUE(loadStaff("00001"));
    EXPECT_EQ(mainSent(), Texts{"SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00001'"});
    EXPECT_EQ(staff.staffCode, "00001");
    EXPECT_EQ(staff.signedInName, "山田太郎");
    EXPECT_EQ(staff.事業所コード, "000");
    EXPECT_EQ(staff.部門コード, "001");
    EXPECT_EQ(staff.セクションコード, "001");
    EXPECT_EQ(staff.役職コード, "09");
    EXPECT_EQ(staff.社員区分, 1);
    EXPECT_EQ(staff.accessLevel, 6);
    EXPECT_EQ(staff.classRights[9], "1");
    EXPECT_EQ(staff.operationRights[7], "2");
    EXPECT_EQ(staff.ログインID, "");
}

TEST_F(Staff, NullsLeaveWhatWasThere) {
    main("UPDATE M担当者 SET 氏名 = NULL, アクセス権限 = NULL, 操作許可 = NULL");
    staff.signedInName = "前の人";
    staff.accessLevel = 3;
    staff.operationRights[0] = "1";
    EXPECT_TRUE(loadStaff("00001"));
    EXPECT_EQ(staff.signedInName, "前の人");
    EXPECT_EQ(staff.accessLevel, 3);
    EXPECT_EQ(staff.operationRights[0], "1");
}

TEST_F(Staff, AnUnknownMemberChangesNothing) {
    staff.signedInName = "前の人";
    EXPECT_FALSE(loadStaff("99999"));
    EXPECT_EQ(staff.signedInName, "前の人");
}

TEST_F(Staff, ARetiredMemberStillLoads) {
    main("UPDATE M担当者 SET 在籍区分 = '1', 退社日付 = '20200101'");
    EXPECT_TRUE(loadStaff("00001"));
}

TEST_F(Staff, TheMemberIsWrittenBackAndLoaded) {
    main("INSERT INTO M担当者 (コード, 氏名) VALUES ('00002', '鈴木花子')");
    staff.staffCode = "00002";
    writeStartupStaff();
    EXPECT_EQ(startupStaff(), "00002");
    EXPECT_EQ(staff.signedInName, "鈴木花子");
    EXPECT_EQ(sent(journal::Channel::sentLocal)[0],
              "UPDATE 動作環境定義 SET 起動担当者コード = '00002'  WHERE 動作環境定義ID = '001'");
}

TEST_F(Staff, ABlankMemberIsNotWritten) {
    staff.staffCode = "  ";
    writeStartupStaff();
    EXPECT_EQ(startupStaff(), "00001");
}

TEST_F(Staff, AFailedWriteIsToldAndLoadsNobody) {
    database::breakStatements(database::Role::local, "UPDATE 動作環境定義");
    staff.staffCode = "00001";
    staff.signedInName = "前の人";
    writeStartupStaff();
    EXPECT_EQ(boxes, Texts{"データベースに問題が発生し修正できませんでした。"});
    EXPECT_EQ(staff.signedInName, "前の人");
}

TEST_F(Staff, APermittedStartUpMemberIsSignedIn) {
    EXPECT_TRUE(authorize());
    EXPECT_TRUE(staff.signedIn);
}

TEST_F(Staff, NobodyUnknownOrRefusedIsNotSignedIn) {
    staff.signedIn = true;
    main("UPDATE M担当者 SET 操作許可 = '1'");
    EXPECT_FALSE(authorize());
    EXPECT_FALSE(staff.signedIn);
    local("UPDATE 動作環境定義 SET 起動担当者コード = '99999'");
    EXPECT_FALSE(authorize());
    local("UPDATE 動作環境定義 SET 起動担当者コード = NULL");
    EXPECT_FALSE(authorize());
    EXPECT_EQ(staff.staffCode, "");
}

} // namespace
} // namespace kestrel
