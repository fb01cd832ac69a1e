#include "setup/check.hpp"

#include "installations.hpp"

#include <fstream>

namespace kestrel::setup {

class CheckTest : public Installations {
protected:
    void SetUp() override {
        Installations::SetUp();
        root = make("sample", What::minimal);
    }
    using Lines = std::vector<std::string>;
    Lines afterMain(const std::string& sql) {
        change(root, mainFile, sql);
        return checkInstallation(root);
    }
    Lines afterLocal(const std::string& sql) {
        change(root, localFile, sql);
        return checkInstallation(root);
    }
    void overwrite(const std::string& file, const std::string& content) { std::ofstream(root + "/" + file) << content; }

    std::string root;
};

TEST_F(CheckTest, newInstallationsAreInOrder) {
    EXPECT_EQ(checkInstallation(root), Lines{});
    EXPECT_EQ(checkInstallation(make("full", What::full)), Lines{});
}

TEST_F(CheckTest, onlyReads) {
    const auto before = std::filesystem::last_write_time(root + "/" + mainFile);
    std::filesystem::permissions(root + "/" + mainFile, std::filesystem::perms::owner_read);
    EXPECT_EQ(checkInstallation(root), Lines{});
    EXPECT_EQ(std::filesystem::last_write_time(root + "/" + mainFile), before);
}

TEST_F(CheckTest, noFolder) {
    EXPECT_EQ(checkInstallation(at("none")), Lines{"there is no folder " + at("none")});
}

TEST_F(CheckTest, missingFoldersAndFilesHaveALineEach) {
    std::filesystem::remove_all(root + "/manual");
    std::filesystem::remove(root + "/users");
    std::filesystem::remove(root + "/data/gnrdb.accdb");
    std::filesystem::remove(root + "/" + programFile);
    EXPECT_EQ(checkInstallation(root),
              (Lines{"folder manual is missing", "folder users is missing", "file data/gnrdb.accdb is missing",
                     "file prgbin/連絡台帳入力 is missing"}));
}

TEST_F(CheckTest, theOlderFormatCountsToo) {
    std::filesystem::rename(root + "/report/repdb.accdb", root + "/report/repdb.mdb");
    std::filesystem::rename(root + "/" + localFile, root + "/conf/usrcnfg.mdb");
    EXPECT_EQ(checkInstallation(root), Lines{});
}

TEST_F(CheckTest, missingLocalDatabase) {
    std::filesystem::remove(root + "/" + localFile);
    EXPECT_EQ(checkInstallation(root), Lines{"file conf/usrcnfg.accdb is missing"});
}

TEST_F(CheckTest, missingMainDatabase) {
    std::filesystem::remove(root + "/" + mainFile);
    EXPECT_EQ(checkInstallation(root), Lines{"the main database " + root + "/data/maindb.accdb is missing"});
}

TEST_F(CheckTest, aFileThatIsNoDatabaseHasOneLine) {
    overwrite(mainFile, std::string(5000, 'x'));
    const Lines lines = checkInstallation(root);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(lines[0].starts_with(root + "/data/maindb.accdb can't be read: ")) << lines[0];
}

TEST_F(CheckTest, missingTable) {
    const Lines lines = afterMain("DROP TABLE Mセクション");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(lines[0].starts_with("table Mセクション is missing")) << lines[0];
}

TEST_F(CheckTest, missingColumn) {
    EXPECT_EQ(afterMain("ALTER TABLE M部門 DROP COLUMN 稼動状況区分"), Lines{"column M部門.稼動状況区分 is missing"});
    EXPECT_EQ(afterLocal("ALTER TABLE プログラム稼動履歴 DROP COLUMN 摘要"),
              (Lines{"column プログラム稼動履歴.摘要 is missing", "column M部門.稼動状況区分 is missing"}));
}

TEST_F(CheckTest, missingRows) {
    const std::pair<const char*, const char*> local[] = {
        {"DELETE FROM データベース定義", "table データベース定義 has no row 情報種類 = GNR"},
        {"DELETE FROM 動作環境定義", "table 動作環境定義 has no row 動作環境定義ID = 001"},
        {"DELETE FROM 営業支援 WHERE プログラムID = '連絡台帳帳票'",
         "table 営業支援 has no row プログラムID = 連絡台帳帳票"}};
    for (const auto& [sql, line] : local) {
        root = make(std::string("local") + line, What::minimal);
        EXPECT_EQ(afterLocal(sql), Lines{line});
    }
    const std::pair<const char*, const char*> main[] = {
        {"DELETE FROM Mユーザ", "table Mユーザ has no row ID = 0001"},
        {"DELETE FROM A番号情報 WHERE 番号ID = '16310'", "table A番号情報 has no row 番号ID = 16310"},
        {"DELETE FROM A番号情報 WHERE 番号ID = '01110'", "table A番号情報 has no row 番号ID = 01110"}};
    for (const auto& [sql, line] : main) {
        root = make(std::string("main") + line, What::minimal);
        EXPECT_EQ(afterMain(sql), Lines{line});
    }
}

TEST_F(CheckTest, unknownKindAndServers) {
    EXPECT_EQ(afterLocal("UPDATE データベース定義 SET db = 'X'"), Lines{"データベース定義: unknown database kind X"});
    const Lines lines = afterLocal("UPDATE データベース定義 SET db = 'S', プロバイダ名 = 'PostgreSQL', "
                                   "サーバー名 = '/nowhere', データベース名 = 'x', パスワード = 'geheim'");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(lines[0].starts_with("the main database on the server can't be opened: ")) << lines[0];
    EXPECT_EQ(lines[0].find("geheim"), std::string::npos) << lines[0];
}

TEST_F(CheckTest, classesHaveToBeConsecutiveFromZero) {
    EXPECT_EQ(afterMain("DELETE FROM K発送区分 WHERE 区分 = 0"),
              Lines{"table K発送区分: 区分 is not consecutive from 0"});
    EXPECT_EQ(afterMain("DELETE FROM K発送区分"), Lines{"table K発送区分 is empty"});
}

TEST_F(CheckTest, startUpMember) {
    EXPECT_EQ(afterMain("UPDATE M担当者 SET 操作許可 = '1'"),
              Lines{"the start-up member 00001 may not open the program"});
    EXPECT_EQ(afterMain("INSERT INTO 担当者別操作許可プログラム (担当者コード,業務メニュ,プログラムID) "
                        "VALUES ('00001','営業支援','連絡台帳入力')"),
              Lines{});
    EXPECT_EQ(afterMain("UPDATE 担当者別操作許可プログラム SET 操作許可 = '1'"),
              Lines{"the start-up member 00001 may not open the program"});
    EXPECT_EQ(afterMain("DELETE FROM M担当者"), Lines{"the start-up member 00001 is not in M担当者"});
    EXPECT_EQ(afterLocal("UPDATE 動作環境定義 SET 起動担当者コード = NULL"),
              Lines{"動作環境定義 names no start-up member"});
}

TEST_F(CheckTest, theRightOfTheProgramsClassCounts) {
    EXPECT_EQ(afterMain("UPDATE M担当者 SET 処理分類0操作許可 = '1'"),
              Lines{"the start-up member 00001 may not open the program"});
    EXPECT_EQ(afterLocal("UPDATE 営業支援 SET 処理分類 = '1'"), Lines{});
}

TEST_F(CheckTest, generatedColumnsHaveToGiveTheJoinedText) {
    change(root, mainFile, "ALTER TABLE T名簿明細 DROP COLUMN 宛先名称");
    change(root, mainFile, "ALTER TABLE T名簿明細 ADD COLUMN 宛先名称 TEXT");
    change(root, mainFile,
           "INSERT INTO T名簿明細 (事業所コード,番号基準日付,名簿No,名簿宛先No,宛先名称A,宛先名称) "
           "VALUES ('001','20250331','00000001','000001','甲','乙'), ('001','20250331','00000001','000002','甲','甲')");
    EXPECT_EQ(checkInstallation(root), Lines{"T名簿明細.宛先名称 is not the joined text in 1 rows"});
    EXPECT_EQ(afterMain("UPDATE T名簿明細 SET 宛先名称 = NULL"),
              Lines{"T名簿明細.宛先名称 is not the joined text in 2 rows"});
}

} // namespace kestrel::setup
