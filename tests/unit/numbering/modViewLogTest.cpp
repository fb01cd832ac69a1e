#include "numbering/modViewLog.hpp"

#include "../data/opened.hpp"

#include "session/companyValues.hpp"

#include <algorithm>

namespace kestrel {
namespace {

using Texts = std::vector<std::string>;

class ViewLog : public Opened {
protected:
    ViewLog() {
        company.決算月 = 3;
        company.決算日 = 31;
        staff.staffCode = "00001";
        staff.signedInName = "山田太郎";
        installation.userId = "user";
        installation.sessionOffice = "002";
        main("UPDATE A番号情報 SET 連番種類 = '1' WHERE 番号ID = '01110'");
    }
    static void view() { writeViewRecord("連絡台帳入力", "002", "20250331", "00000007", "000003"); }
    Texts numbers() const { return mainRows("SELECT 閲覧No FROM T閲覧 ORDER BY 閲覧No"); }
    void taken(const std::string& number) {
        main("INSERT INTO T閲覧 (事業所コード, 番号基準日付, 閲覧No) VALUES ('002', '20250331', '" + number + "')");
    }
};

TEST_F(ViewLog, TheFirstViewIsNumberOneAndHoldsWhatWasViewed) {
    view();
    EXPECT_EQ(mainSent().back(),
              "INSERT INTO [T閲覧] "
              "([事業所コード],[番号基準日付],[閲覧No],[閲覧日付],[閲覧時刻],[担当者コード],[担当者名],[閲覧情報],"
              "[伝票事業所コード],[伝票番号基準日付],[伝票No],[キー項目],[閲覧区分],[閲覧メモ],[承認日付],["
              "承認者コード],[承認区分],"
              "[ユーザID],[登録日付],[更新日付]) VALUES "
              "('002','20250331','00000001','20240515','09:30:00','00001','山田太郎',"
              "'連絡台帳入力','002','20250331','00000007','000003','0','','','','0','user00001KESTREL','20240515 "
              "093000','')");
    EXPECT_EQ(numbers(), Texts{"00000001"});
}

TEST_F(ViewLog, TheSameAddresseeTwiceIsTwoRows) {
    view();
    view();
    EXPECT_EQ(numbers(), (Texts{"00000001", "00000002"}));
}

TEST_F(ViewLog, ANumberThatIsTakenIsSkipped) {
    taken("00000001");
    taken("00000002");
    view();
    EXPECT_EQ(numbers(), (Texts{"00000001", "00000002", "00000003"}));
    EXPECT_EQ(mainValue("SELECT 連番 FROM A期日別番号情報 WHERE 番号ID = '01110'"), "00000003");
}

TEST_F(ViewLog, TheNumberComesFromTheOperatingOffice) {
    company.伝票番号管理区分 = 1;
    installation.operatingOffice = "001";
    main("UPDATE A番号情報 SET 連番種類 = '0' WHERE 番号ID = '01110'");
    view();
    EXPECT_EQ(mainValue("SELECT 事業所コード, 連番 FROM A事業所別番号情報"), "001 | 00000001");
    EXPECT_EQ(mainValue("SELECT 事業所コード, 番号基準日付 FROM T閲覧"), "002 | 99999999");
}

TEST_F(ViewLog, AFailedTestCountsAsFree) {
    taken("00000001");
    database::breakStatements(database::Role::main, "SELECT 閲覧No");
    view();
    EXPECT_EQ(numbers(), Texts{"00000001"});
    EXPECT_EQ(failures(), 2); // the test, and the insert of a number that is there already
}

TEST_F(ViewLog, AMissingRegisterGoesOnWithZeros) {
    main("DELETE FROM A番号情報 WHERE 番号ID = '01110'");
    view();
    EXPECT_EQ(boxes, Texts(2, "番号情報に問題が発生設定できませんでした。"));
    EXPECT_EQ(mainValue("SELECT 閲覧No, 番号基準日付 FROM T閲覧"), "00000000 | ");
}

TEST_F(ViewLog, ARegisterThatDoesNotMoveEndsTheSearch) {
    taken("00000001");
    database::breakStatements(database::Role::main, "UPDATE A期日別番号情報");
    view();
    EXPECT_EQ(numbers(), Texts{"00000001"});
    const Texts sentTexts = mainSent();
    EXPECT_EQ(
        std::count_if(sentTexts.begin(), sentTexts.end(), [](auto& sql) { return sql.starts_with("SELECT 閲覧No"); }),
        2);
    EXPECT_TRUE(mainSent().back().starts_with("INSERT INTO [T閲覧] "));
}

} // namespace
} // namespace kestrel
