#include "values/modDirectory.hpp"

#include "../data/opened.hpp"

namespace kestrel {
namespace {

using Texts = std::vector<std::string>;

class Directory : public Opened {
protected:
    Directory() {
        installation.userId = "user";
        staff.staffCode = "00001";
    }
    static void update(std::string_view telephone, std::string_view name = "O'Neil ") {
        updatePhoneDirectory(telephone, name, "100-0001", "住所A'", "住所B  ", "", 1);
    }
    Texts entries() const {
        return mainRows("SELECT 電話, 名称, 郵便番号, 住所A, 住所B, 住所C, 電話番号, 法人個人区分, ユーザID, 登録日付, "
                        "更新日付 FROM "
                        "M電話番号 ORDER BY 電話番号");
    }
};

TEST_F(Directory, SixDigitsWriteNothing) {
    update("123-456");
    update("  123456  ");
    update("");
    update("(   )-1234"); // seven characters and more, but few digits
    EXPECT_EQ(mainSent(), Texts{});
}

TEST_F(Directory, ANewNumberIsInserted) {
    update("03-1234-567");
    EXPECT_EQ(
        mainSent(),
        (Texts{"SELECT * FROM M電話番号 WHERE 電話番号 = '031234567'",
               "INSERT INTO M電話番号 (電話,名称,郵便番号,住所A,住所B,住所C,電話番号,法人個人区分,ユーザID,登録日付) "
               "VALUES "
               "('03-1234-567', 'O''Neil', '100-0001', '住所A''', '住所B', '', '031234567', '1', 'user00001KESTREL', "
               "'20240515 093000')"}));
    EXPECT_EQ(entries(),
              Texts{"03-1234-567 | O'Neil | 100-0001 | 住所A' | 住所B |  | 031234567 | 1 | user00001KESTREL | "
                    "20240515 093000 | NULL"});
}

TEST_F(Directory, AnotherWayOfWritingTheNumberFindsTheRowAndOverwritesIt) {
    update("0312345678");
    platform::standClock({2024, 5, 16, 8, 0, 1});
    journal::start();
    update("03-1234-5678", "別名");
    EXPECT_EQ(
        mainSent().back(),
        "UPDATE M電話番号 SET 電話 = '03-1234-5678', 名称 = '別名', 郵便番号 = '100-0001', 住所A = '住所A''', 住所B = "
        "'住所B', "
        "住所C = '', 法人個人区分 = '1', ユーザID = 'user00001KESTREL', 更新日付 = '20240516 080001' WHERE 電話番号 = "
        "'0312345678'");
    EXPECT_EQ(entries(),
              Texts{"03-1234-5678 | 別名 | 100-0001 | 住所A' | 住所B |  | 0312345678 | 1 | user00001KESTREL | "
                    "20240515 093000 | 20240516 080001"});
}

TEST_F(Directory, AnApostropheInTheTelephoneFailsSilently) {
    update("03'1234567");
    EXPECT_EQ(entries(), Texts{});
    EXPECT_EQ(boxes, Texts{});
    EXPECT_EQ(failures(), 1);
}

} // namespace
} // namespace kestrel
