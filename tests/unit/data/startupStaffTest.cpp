#include "company/modStaff.hpp"

#include "installed.hpp"

namespace kestrel {

namespace {

class StartupStaff : public Installed {
protected:
    bool readWith(const std::string& value) {
        local("UPDATE 動作環境定義 SET 起動担当者コード = " + value);
        EXPECT_TRUE(openSystemDatabases());
        staff.staffCode = "99999";
        return readStartupStaff();
    }
};

} // namespace

TEST_F(StartupStaff, TheStoredCodeIsTaken) {
    EXPECT_TRUE(readWith("'00007'"));
    EXPECT_EQ(staff.staffCode, "00007");
}

TEST_F(StartupStaff, NobodySignedInYet) {
    EXPECT_FALSE(readWith("NULL"));
    EXPECT_EQ(staff.staffCode, "");
}

TEST_F(StartupStaff, ABlankCodeIsTakenButCountsAsNone) {
    EXPECT_FALSE(readWith("'   '"));
    EXPECT_EQ(staff.staffCode, "   ");
}

TEST_F(StartupStaff, NoRowIsNobody) {
    EXPECT_TRUE(openSystemDatabases());
    local("DELETE FROM 動作環境定義");
    staff.staffCode = "99999";
    EXPECT_FALSE(readStartupStaff());
    EXPECT_EQ(staff.staffCode, "");
    EXPECT_EQ(sent(journal::Channel::sentLocal).back(), "SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'");
}

} // namespace kestrel
