#include "company/modProfile.hpp"

#include "../data/opened.hpp"

#include "company/modOffices.hpp"
#include "company/pinCodec.hpp"
#include "session/companyValues.hpp"

namespace kestrel {
namespace {

using Texts = std::vector<std::string>;

class Profile : public Opened {
protected:
    std::string storedOffice() const {
        return localValue("SELECT 運用事業所コード FROM 動作環境定義 WHERE 動作環境定義ID = '001'");
    }
    void operateFrom(const std::string& office) { installation.operatingOffice = office; }
};

TEST_F(Profile, TheCompanyIsReadIntoTheSession) {
    EXPECT_TRUE(loadCompanyProfile());
    EXPECT_EQ(company.名称, "株式会社見本");
    EXPECT_EQ(company.郵便番号, "100-0001");
    EXPECT_EQ(company.決算月, 3);
    EXPECT_EQ(company.決算日, 31);
    EXPECT_EQ(company.締日区分, 1);
    EXPECT_EQ(company.締日, 20);
    EXPECT_EQ(company.決済方法, 1);
    EXPECT_EQ(company.決済月, 1);
    EXPECT_EQ(company.決済日, 10);
    EXPECT_EQ(company.伝票番号管理区分, 0);
    EXPECT_EQ(company.pinRequired, 0);
    EXPECT_EQ(company.officeCount, 2);
    EXPECT_EQ(company.officeName, "全社");
    EXPECT_FALSE(company.documentFolder.empty());
}

TEST_F(Profile, TheStatementsInTheirOrder) {
    loadCompanyProfile();
    const std::string office = "SELECT * FROM M事業所 WHERE コード = '000'";
    const std::string linked = "SELECT TOP 1 * FROM M他業務連携 WHERE コード = '";
    EXPECT_EQ(mainSent(), (Texts{"SELECT * FROM Mユーザ WHERE ID = '0001'", office, linked + "003'", linked + "002'",
                                 linked + "004'", linked + "005'", linked + "005'", office,
                                 "SELECT COUNT(*) AS 事業所件数 FROM M事業所 WHERE コード <> '000'"}));
}

TEST_F(Profile, WithoutItsRowTheOtherStepsStillRun) {
    main("DELETE FROM Mユーザ");
    EXPECT_FALSE(loadCompanyProfile());
    EXPECT_EQ(company.名称, "");
    EXPECT_EQ(company.officeCount, 2);
}

TEST_F(Profile, NullsLeaveValuesEmptyOrZero) {
    main("UPDATE Mユーザ SET 暗証番号有無 = NULL, ドキュメントフォルダ = NULL, 名称 = NULL");
    EXPECT_TRUE(loadCompanyProfile());
    EXPECT_EQ(company.pinRequired, 0);
    EXPECT_EQ(company.documentFolder, "");
    EXPECT_EQ(company.名称, "");
}

TEST_F(Profile, ADeletedOperatingOfficeFallsBackToTheWholeCompany) {
    operateFrom("009");
    installation.sessionOffice = "009";
    EXPECT_TRUE(loadCompanyProfile());
    EXPECT_EQ(installation.operatingOffice, "000");
    EXPECT_EQ(storedOffice(), "000");
    EXPECT_EQ(installation.sessionOffice, "009"); // the office on the screen is another matter
    EXPECT_EQ(sent(journal::Channel::sentLocal)[0],
              "UPDATE 動作環境定義 SET  運用事業所コード = '000' WHERE 動作環境定義ID = '001'");
}

TEST_F(Profile, NoOfficeAtAllStillEndsAtTheWholeCompany) {
    main("DELETE FROM M事業所");
    operateFrom("001");
    EXPECT_TRUE(loadCompanyProfile());
    EXPECT_EQ(installation.operatingOffice, "000");
    EXPECT_EQ(company.officeName, "");
    EXPECT_EQ(company.officeCount, 0);
}

TEST_F(Profile, OnlyTheWholeCompanyCountsAsNoOffice) {
    main("DELETE FROM M事業所 WHERE コード <> '000'");
    loadCompanyProfile();
    EXPECT_EQ(company.officeCount, 0);
}

TEST_F(Profile, TheWholeCompanyOverridesNothing) {
    main("UPDATE Mユーザ SET 暗証番号有無 = '1', 帳票イメージフォルダ = 'company', 更新実行区分 = '3'");
    main("UPDATE M事業所 SET 暗証番号有無 = '0', 帳票イメージフォルダ = 'office', 更新実行区分 = '4' WHERE コード = "
         "'000'");
    operateFrom("000");
    loadCompanyProfile();
    EXPECT_EQ(company.pinRequired, 1);
    EXPECT_EQ(company.folders.帳票イメージフォルダ, "company");
    EXPECT_EQ(company.更新実行区分, 3);
}

TEST_F(Profile, AnOfficeOverridesWhatItNames) {
    main("UPDATE Mユーザ SET 暗証番号有無 = '0', 帳票イメージフォルダ = 'company', BACKUPフォルダ = 'company', "
         "更新実行区分 = '3'");
    main("UPDATE M事業所 SET 暗証番号有無 = '1', 帳票イメージフォルダ = '', BACKUPフォルダ = 'office', 更新実行区分 = "
         "'4' WHERE コード = "
         "'002'");
    operateFrom("002");
    loadCompanyProfile();
    EXPECT_EQ(company.pinRequired, 1);
    EXPECT_EQ(company.folders.帳票イメージフォルダ, "company");
    EXPECT_EQ(company.folders.BACKUPフォルダ, "office");
    EXPECT_EQ(company.更新実行区分, 4);
    EXPECT_EQ(company.officeName, "大阪支店");
}

TEST_F(Profile, AnOfficeWithoutAWordOnPinsSwitchesThemOff) {
    main("UPDATE Mユーザ SET 暗証番号有無 = '1'");
    main("UPDATE M事業所 SET 暗証番号有無 = NULL WHERE コード = '002'");
    operateFrom("002");
    loadCompanyProfile();
    EXPECT_EQ(company.pinRequired, 0);
}

TEST_F(Profile, ThePrivilegedPinIsTheOfficesAlsoForTheWholeCompany) {
    main("UPDATE M事業所 SET 特権暗証番号 = '" + encode("MASTER") + "' WHERE コード = '000'");
    operateFrom("000");
    loadCompanyProfile();
    EXPECT_EQ(company.officePrivilegedPin, "MASTER");
}

TEST_F(Profile, AMissingLinkedBusinessLeavesItsSlotEmpty) {
    main("INSERT INTO M他業務連携 (コード, 業務名, 連携有無区分, 社員更新有無区分) VALUES ('005', '会計', '1', '2')");
    loadCompanyProfile();
    EXPECT_EQ(company.linkedCount, 5);
    EXPECT_EQ(company.linked[2].code, "004");
    EXPECT_EQ(company.linked[2].業務名, "");
    for (const int slot : {3, 4}) {
        EXPECT_EQ(company.linked[slot].業務名, "会計");
        EXPECT_EQ(company.linked[slot].連携有無区分, 1);
        EXPECT_EQ(company.linked[slot].社員更新有無区分, 2);
    }
}

} // namespace
} // namespace kestrel
