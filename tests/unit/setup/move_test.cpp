#include "setup/move.hpp"

#include "../open_file.hpp"
#include "installations.hpp"

#include <sstream>

namespace kestrel::setup {

// What is refused before a server is asked.
class MoveTest : public Installations {
protected:
    static constexpr const char* nowhere = "Provider=PostgreSQL;User ID=u;Password=geheim;Data Source=/nowhere/x;";
    std::string moveOf(const std::string& root, bool leaveUnknown = false) {
        std::ostringstream words;
        const Status status = moveMainDatabase({root, nowhere, "S", leaveUnknown}, words);
        progress = words.str();
        return status ? "moved" : status.failure().description;
    }
    std::string progress;
};

TEST_F(MoveTest, whoHasTheFileOpenIsNamed) {
    const std::string root = make("a", What::minimal);
    const test::OpenElsewhere other(root + "/" + mainFile);
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").filename().string();
    EXPECT_EQ(moveOf(root), root + "/" + mainFile + " is open in " + program + " (process " +
                                std::to_string(other.process) + "); nothing was moved");
}

TEST_F(MoveTest, aFileInUseIsNotTaken) {
    const std::string root = make("a", What::minimal);
    auto store = openStore(root + "/" + mainFile);
    ASSERT_TRUE(store);
    EXPECT_EQ(moveOf(root), root + "/" + mainFile + " can't be had alone: database is locked; nothing was moved");
}

TEST_F(MoveTest, whatIsNoPartOfTheSuiteIsNotLeftBehindUnasked) {
    const std::string root = make("a", What::minimal);
    change(root, mainFile, "CREATE TABLE 別業務 (もの TEXT)");
    change(root, mainFile, "ALTER TABLE M部門 ADD COLUMN 備考 TEXT");
    const std::string refused = moveOf(root);
    EXPECT_TRUE(refused.starts_with("not part of the suite's tables: ")) << refused;
    for (const char* part : {"table 別業務", "column M部門.備考", "--leave-unknown"})
        EXPECT_NE(refused.find(part), std::string::npos) << refused;
    EXPECT_EQ(moveOf(root, true).find("not part"), std::string::npos);
    EXPECT_TRUE(progress.starts_with("stays behind: ")) << progress;
}

TEST_F(MoveTest, withoutTheServerEverythingStaysAsItWas) {
    const std::string root = make("a", What::minimal);
    const std::string refused = moveOf(root);
    EXPECT_NE(refused, "moved");
    EXPECT_EQ(refused.find("geheim"), std::string::npos) << refused;
    EXPECT_EQ(valueIn(root, localFile, "SELECT db FROM データベース定義"), "A");
    EXPECT_EQ(valueIn(root, mainFile, "SELECT COUNT(*) AS n FROM M担当者"), "1");
}

TEST_F(MoveTest, aServersDatabaseIsNotMoved) {
    const std::string root = make("a", What::minimal);
    change(root, localFile, "UPDATE データベース定義 SET プロバイダ名 = 'PostgreSQL'");
    EXPECT_EQ(moveOf(root), "the main database is on a server already");
}

} // namespace kestrel::setup
