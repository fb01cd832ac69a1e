#include "company/modRights.hpp"

#include "../data/opened.hpp"

#include "screen/window.hpp"
#include "session/companyValues.hpp"
#include "session/rosterSession.hpp"

namespace kestrel {
namespace {

using Texts = std::vector<std::string>;

class Rights : public Opened {
protected:
    Rights() {
        staff.staffCode = "00001";
        installation.operatingOffice = "001";
    }
    static bool may(int kind, std::string_view program = "連絡台帳入力") {
        return checkOperationRight("営業支援", program, kind);
    }
    void processClass(const std::string& value) {
        local("UPDATE 営業支援 SET 処理分類 = " + value + " WHERE プログラムID = '連絡台帳入力'");
    }
    void ownRow(const std::string& columns, const std::string& values) {
        main("INSERT INTO 担当者別操作許可プログラム (担当者コード, 業務メニュ, プログラムID, " + columns +
             ") VALUES ('00001', '営業支援', '連絡台帳入力', " + values + ")");
    }
};

TEST_F(Rights, WithoutAnyRowTheClassOfTheProgramDecides) {
    EXPECT_TRUE(may(0));
    EXPECT_EQ(mainSent(), Texts{"SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム WHERE "
                                "担当者別操作許可プログラム.担当者コード = '00001' AND "
                                "担当者別操作許可プログラム.業務メニュ = '営業支援' AND "
                                "担当者別操作許可プログラム.プログラムID = '連絡台帳入力'"});
    EXPECT_EQ(sent(journal::Channel::sentLocal), Texts{"SELECT * FROM 営業支援 WHERE プログラムID = '連絡台帳入力'"});
}

TEST_F(Rights, AnotherMenuAddsNoCondition) {
    checkOperationRight("営業支援マイメニュ", "連絡台帳入力", 0);
    EXPECT_EQ(mainSent(), Texts{"SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム WHERE "
                                "担当者別操作許可プログラム.担当者コード = '00001' AND "
                                "担当者別操作許可プログラム.プログラムID = '連絡台帳入力'"});
}

TEST_F(Rights, AnEmptyStaffCodeSkipsTheRowOfTheMember) {
    staff.staffCode.clear();
    EXPECT_TRUE(may(0));
    EXPECT_EQ(mainSent(), Texts{});
}

TEST_F(Rights, AProgramUnknownToTheMenuIsRefused) {
    EXPECT_FALSE(may(0, "他プログラム"));
}

TEST_F(Rights, AFailingMenuTableRefuses) {
    database::breakStatements(database::Role::local, "FROM 営業支援");
    EXPECT_FALSE(may(0));
}

TEST_F(Rights, AFailingRowOfTheMemberFallsThroughToTheClass) {
    ownRow("操作許可", "'1'");
    database::breakStatements(database::Role::main, "担当者別操作許可プログラム");
    EXPECT_TRUE(may(0));
}

TEST_F(Rights, ARefusingRowOfTheMemberRefusesEveryKind) {
    ownRow("操作許可, 入力許可", "'1', '0'");
    EXPECT_FALSE(may(0));
    EXPECT_FALSE(may(1));
    EXPECT_EQ(sent(journal::Channel::sentLocal), Texts{});
}

TEST_F(Rights, ARowOfTheMemberReplacesTheClassAndItsRightsStay) {
    processClass("'2'");
    staff.classRights[2] = "1";
    staff.operationRights = {"1", "1", "1", "1", "1", "1", "1", "1"};
    ownRow("操作許可, 削除許可", "'0', '1'");
    EXPECT_TRUE(may(1));
    EXPECT_FALSE(may(3));
    EXPECT_EQ(staff.operationRights, (std::array<std::string, 8>{"0", "", "", "1", "", "", "", ""}));
}

TEST_F(Rights, ProcessClasses) {
    struct Row {
        const char *name, *value;
        int refusedRight;
        bool permitted;
    };
    const Row table[] = {
        {"class 0", "'0'", 0, false},      {"class 1", "'1'", 1, false},      {"class 8", "'8'", 8, false},
        {"class 9", "'9'", 9, false},      {"another right", "'9'", 8, true}, {"class 10", "'10'", 1, true},
        {"class -1", "'-1'", 1, true},     {"null is 0", "NULL", 0, false},   {"no number is 0", "'x'", 0, false},
        {"office class", "'3'", 3, false},
    };
    company.officeCount = 1;
    for (const Row& row : table) {
        SCOPED_TRACE(row.name);
        processClass(row.value);
        staff.classRights = {};
        staff.classRights[static_cast<std::size_t>(row.refusedRight)] = "1";
        EXPECT_EQ(may(0), row.permitted);
    }
}

TEST_F(Rights, TheOfficeClass) {
    processClass("'3'");
    staff.classRights[3] = "1";
    company.officeCount = 0;
    EXPECT_TRUE(may(0)) << "a company without offices isn't asked for the right";
    company.officeCount = 1;
    EXPECT_FALSE(may(0));
    staff.classRights[3] = "";
    EXPECT_TRUE(may(0));
    installation.operatingOffice = "000";
    EXPECT_FALSE(may(0)) << "the whole company is refused whatever the right says";
}

TEST_F(Rights, EachKindAsksItsRight) {
    for (int kind = 0; kind < 8; ++kind) {
        staff.operationRights = {};
        EXPECT_TRUE(may(kind));
        staff.operationRights[static_cast<std::size_t>(kind)] = "1";
        EXPECT_FALSE(may(kind));
        EXPECT_TRUE(may(8));
        EXPECT_TRUE(may(-1));
    }
}

TEST_F(Rights, ARightPermitsWhenItsNumberIsZero) {
    const std::pair<const char*, bool> texts[] = {{"", true},     {"0", true},  {"00", true},
                                                  {"許可", true}, {"1", false}, {"2x", false}};
    for (const auto& [text, permitted] : texts) {
        staff.operationRights[2] = text;
        EXPECT_EQ(may(2), permitted) << text;
    }
}

TEST_F(Rights, TheKeyFieldsAreRegistered) {
    registerLinkKeys("営業支援", "連絡台帳入力");
    const std::string statement = sent(journal::Channel::sentLocal).at(0);
    EXPECT_TRUE(statement.starts_with(
        "UPDATE 営業支援 SET  条件項目名A = '事業所コード', 条件項目名B = '番号基準日付', 条件項目名C = "
        "'名簿No', 条件項目名D = '名簿宛先No', 条件項目名E = '', "))
        << statement;
    EXPECT_TRUE(statement.ends_with(" 条件項目名Y = '', 条件項目名Z = '' WHERE プログラムID = '連絡台帳入力'"))
        << statement;
    EXPECT_EQ(localValue("SELECT 条件項目名A, 条件項目名D, 条件項目名E, 条件項目名Z FROM 営業支援 WHERE プログラムID = "
                         "'連絡台帳入力'"),
              "事業所コード | 名簿宛先No |  | ");
}

TEST_F(Rights, AFailedRegistrationIsTold) {
    database::breakStatements(database::Role::local, "UPDATE 営業支援");
    registerLinkKeys("営業支援", "連絡台帳入力");
    EXPECT_EQ(boxes, Texts{"システムデータベースに問題があり登録できません"});
}

TEST_F(Rights, Titles) {
    struct Row {
        const char *name, *office, *officeName;
        int officeCount;
        const char *staffCode, *expected;
    };
    const Row table[] = {
        {"the whole company without offices", "000", "全社", 0, "00001", "連絡台帳入力「山田太郎」"},
        {"the whole company with offices", "000", "全社", 2, "00001", "連絡台帳入力(全社)「山田太郎」"},
        {"an office", "002", "大阪支店", 2, "00001", "連絡台帳入力(大阪支店)「山田太郎」"},
        {"an office named with blanks", "002", "  ", 2, "00001", "連絡台帳入力「山田太郎」"},
        {"nobody signed in", "002", "大阪支店", 2, "", "連絡台帳入力(大阪支店)"},
    };
    screen::Window form("frm");
    const screen::Control& title = screen::addControl(form, {.name = "prg_ttl", .kind = screen::Kind::SSPanel});
    rosterSession.currentForm = &form;
    staff.signedInName = "山田太郎";
    for (const Row& row : table) {
        SCOPED_TRACE(row.name);
        installation.operatingOffice = row.office;
        company.officeName = row.officeName;
        company.officeCount = static_cast<std::int16_t>(row.officeCount);
        staff.staffCode = row.staffCode;
        showProgramTitle();
        EXPECT_EQ(title.caption, row.expected);
        EXPECT_EQ(mainSent().back(), "SELECT * FROM M事業所 WHERE コード = '" + std::string(row.office) + "'");
    }
    EXPECT_EQ(company.officeDisplayName, "大阪支店");
    rosterSession.currentForm = nullptr;
}

} // namespace
} // namespace kestrel
