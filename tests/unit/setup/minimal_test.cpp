#include "installations.hpp"

#include "company/pinCodec.hpp"
#include "setup/tables.hpp"

namespace kestrel::setup {

class MinimalTest : public Installations {
protected:
    void SetUp() override {
        Installations::SetUp();
        root = make("sample", What::minimal);
    }
    std::string main(const std::string& sql) { return valueIn(root, mainFile, sql); }
    std::string local(const std::string& sql) { return valueIn(root, localFile, sql); }

    std::string root;
};

TEST_F(MinimalTest, theTreeIsComplete) {
    for (const char* folder : {"prgbin", "data", "conf", "report", "manual", "users", "documents"}) {
        EXPECT_TRUE(std::filesystem::is_directory(root + "/" + folder)) << folder;
    }
    for (const char* file : {"prgbin/連絡台帳入力", "conf/usrcnfg.accdb", "data/gnrdb.accdb", "data/maindb.accdb",
                             "report/repdb.accdb", "report/repfrmdb.accdb"}) {
        EXPECT_TRUE(std::filesystem::is_regular_file(root + "/" + file)) << file;
    }
    for (const char* file : {"data/gnrdb.accdb", "report/repdb.accdb", "report/repfrmdb.accdb"}) {
        EXPECT_EQ(valueIn(root, file, "SELECT 1 AS n"), "1") << file;
        EXPECT_GE(std::filesystem::file_size(root + "/" + file), 16u) << file;
    }
}

TEST_F(MinimalTest, thePathsNameThisInstallation) {
    EXPECT_EQ(local("SELECT データソース名 FROM データベース定義"), root + "/data/maindb.accdb");
    EXPECT_EQ(local("SELECT サーバー名 FROM データベース定義"), root + "/data/maindb.accdb");
    EXPECT_EQ(main("SELECT ドキュメントフォルダ FROM Mユーザ"), root + "/documents");
}

TEST_F(MinimalTest, theRestOfTheDefinitionIsEmptyAndOfTheEnvironmentNull) {
    for (const char* column : {"ドライバ名", "データベース名", "接続文字列", "ユーザーID", "パスワード"}) {
        EXPECT_EQ(local(std::string("SELECT ") + column + " FROM データベース定義"), "") << column;
    }
    for (const char* column : {"バックアップ日付", "運用条件切替日付", "日曜バックアップ", "バックアップフォルダ"}) {
        EXPECT_EQ(local(std::string("SELECT ") + column + " FROM 動作環境定義"), "NULL") << column;
    }
    EXPECT_EQ(local("SELECT db || dbmw || プロバイダ名 FROM データベース定義 WHERE 情報種類 = 'GNR'"),
              "AACCESSMicrosoft.ACE.OLEDB.12.0");
    EXPECT_EQ(
        local("SELECT 運用事業所コード || インストール区分 || CL更新実行区分 || 起動担当者コード FROM 動作環境定義"),
        "0000000001");
}

TEST_F(MinimalTest, theStartUpMemberHasEveryRightAndAStoredPin) {
    EXPECT_EQ(
        main("SELECT "
             "氏名||カナ||事業所コード||部門コード||セクションコード||社員区分||アクセス権限||在籍区分||ログインID "
             "||退社日付 FROM M担当者 WHERE コード = '00001'"),
        "山田太郎ﾔﾏﾀﾞﾀﾛｳ000001001060yamada");
    EXPECT_EQ(decode(main("SELECT 暗証番号 FROM M担当者")), "1234");
    EXPECT_EQ(
        main("SELECT "
             "処理分類0操作許可||処理分類9操作許可||操作許可||入力許可||修正許可||削除許可||印刷許可||プレビュ許可||"
             "テキスト出力許可||イメージ出力許可 FROM M担当者"),
        "");
    EXPECT_EQ(main("SELECT 役職コード FROM M担当者"), "NULL");
}

TEST_F(MinimalTest, theCompanyClosesAtTheEndOfMarch) {
    EXPECT_EQ(main("SELECT "
                   "ID||名称||郵便番号||決算月||決算日||締日区分||締日||決済方法||決済月||決済日||伝票番号管理区分||"
                   "暗証番号有無 "
                   "FROM Mユーザ"),
              "0001株式会社見本100-0001331120111000");
    EXPECT_EQ(main("SELECT 住所A FROM Mユーザ"), "NULL");
    EXPECT_EQ(main("SELECT group_concat(コード||名称) FROM (SELECT * FROM M事業所 ORDER BY コード)"),
              "000全社,001本社,002大阪支店");
    EXPECT_EQ(main("SELECT group_concat(番号ID||連番種類||連番) FROM (SELECT * FROM A番号情報 ORDER BY 番号ID)"),
              "01110000000000,16310100000000");
}

TEST_F(MinimalTest, theClassesHaveTheirNames) {
    const std::pair<const char*, const char*> classes[] = {{"K発送区分", "0郵送,1宅配,2なし"},
                                                           {"K取引状況区分", "0停止,1取引中,2終了"},
                                                           {"K在籍区分", "0在籍,1退職"},
                                                           {"K社員区分", "0社員,1パート"},
                                                           {"K稼動状況区分", "0休止,1稼動"}};
    for (const auto& [table, rows] : classes) {
        EXPECT_EQ(main(std::string("SELECT group_concat(区分||名称) FROM (SELECT * FROM ") + table + " ORDER BY 区分)"),
                  rows);
    }
}

TEST_F(MinimalTest, thereIsNoOtherRow) {
    std::size_t count = 0;
    for (const Table& table : tables()) {
        const char* file = table.database == "main" ? mainFile : localFile;
        count += std::stoul(valueIn(root, file, "SELECT COUNT(*) AS n FROM " + table.name));
    }
    EXPECT_EQ(count, 25u);
}

TEST_F(MinimalTest, aFilledFolderIsRefusedInOneLineAndLeftAlone) {
    const auto again = createInstallation(root, What::full, "20240515");
    ASSERT_FALSE(again);
    EXPECT_EQ(again.failure().description, root + " is not empty");
    EXPECT_EQ(main("SELECT COUNT(*) AS n FROM M得意先"), "0");
}

TEST_F(MinimalTest, aFileInPlaceOfTheFolderIsRefused) {
    const auto status = createInstallation(root + "/data/gnrdb.accdb", What::minimal, "20240515");
    ASSERT_FALSE(status);
    EXPECT_EQ(status.failure().description, root + "/data/gnrdb.accdb is no folder");
}

TEST_F(MinimalTest, aFailureLeavesNothingBehind) {
    const auto status = createInstallation(at("other"), What::minimal, "20240515", at("no program"));
    ASSERT_FALSE(status);
    EXPECT_NE(status.failure().description.find("no program"), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_empty(at("other")));
}

TEST_F(MinimalTest, aDayThatIsNoDateIsRefused) {
    for (const char* day : {"", "2024", "20240230", "20241301", "2024051x", "00010101"}) {
        EXPECT_FALSE(createInstallation(at("other"), What::full, day)) << day;
    }
    EXPECT_FALSE(std::filesystem::exists(at("other")));
}

TEST_F(MinimalTest, theProgramIsBroughtAlongWhenItIsNamed) {
    ASSERT_TRUE(createInstallation(at("other"), What::minimal, "20240515", "/proc/self/exe"));
    EXPECT_EQ(std::filesystem::file_size(at("other") + "/" + programFile),
              std::filesystem::file_size("/proc/self/exe"));
}

TEST_F(MinimalTest, aCopyIsAnInstallationOfItsOwn) {
    ASSERT_TRUE(copyInstallation(root, at("copy")));
    EXPECT_EQ(valueIn(at("copy"), localFile, "SELECT データソース名 FROM データベース定義"),
              at("copy") + "/data/maindb.accdb");
    EXPECT_EQ(valueIn(at("copy"), localFile, "SELECT サーバー名 FROM データベース定義"),
              at("copy") + "/data/maindb.accdb");
    EXPECT_EQ(valueIn(at("copy"), mainFile, "SELECT ドキュメントフォルダ FROM Mユーザ"), at("copy") + "/documents");
    change(at("copy"), mainFile, "DELETE FROM M部門");
    EXPECT_EQ(main("SELECT COUNT(*) AS n FROM M部門"), "1");
    EXPECT_EQ(local("SELECT データソース名 FROM データベース定義"), root + "/data/maindb.accdb");
}

TEST_F(MinimalTest, aCopyLeavesOtherPathsAlone) {
    change(root, mainFile, "UPDATE Mユーザ SET ドキュメントフォルダ = '/srv/papers'");
    ASSERT_TRUE(copyInstallation(root, at("copy")));
    EXPECT_EQ(valueIn(at("copy"), mainFile, "SELECT ドキュメントフォルダ FROM Mユーザ"), "/srv/papers");
}

TEST_F(MinimalTest, whatIsNotThereIsNotCopied) {
    EXPECT_FALSE(copyInstallation(at("none"), at("copy")));
    EXPECT_FALSE(copyInstallation(root, root));
}

TEST_F(MinimalTest, anInstallationInUseIsNotCopied) {
    std::filesystem::copy_file(root + "/data/gnrdb.accdb", root + "/data/maindb.accdb-wal");
    const auto status = copyInstallation(root, at("copy"));
    ASSERT_FALSE(status);
    EXPECT_NE(status.failure().description.find("in use"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(at("copy")));
}

} // namespace kestrel::setup
