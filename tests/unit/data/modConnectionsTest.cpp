#include "data/modConnections.hpp"

#include "data/modGateway.hpp"
#include "installed.hpp"

namespace kestrel {

namespace {

using Lines = std::vector<std::string>;
namespace fs = std::filesystem;

class Place : public Installed {
protected:
    std::string onlyBox() const { return boxes.size() == 1 ? boxes[0] : std::to_string(boxes.size()) + " boxes"; }
};

} // namespace

TEST_F(Place, FoldersComeFromThePlaceOfTheExecutable) {
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.programRoot, root);
    EXPECT_EQ(installation.binFolder, root + "/prgbin");
    EXPECT_EQ(installation.confFolder, root + "/conf");
    EXPECT_EQ(installation.reportFolder, root + "/report");
    EXPECT_EQ(installation.manualFolder, root + "/manual");
    EXPECT_EQ(installation.localConfFolder, root + "/conf");
    EXPECT_EQ(installation.localReportFolder, root + "/report");
    EXPECT_EQ(installation.gnrdbPath, root + "/data/gnrdb.accdb");
    EXPECT_EQ(installation.gnrdbKind, 1);
    EXPECT_EQ(installation.usrcnfgKind, 1);
    EXPECT_EQ(installation.repdbKind, 1);
    EXPECT_TRUE(connections.localOpen);
    EXPECT_FALSE(connections.mainOpen);
}

TEST_F(Place, WhoRunsTheProgramAndWhere) {
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.userName, "operator");
    EXPECT_EQ(installation.userId, "operator");
    EXPECT_EQ(installation.computerName, "KESTREL");
}

TEST_F(Place, TheProgramFolderIsFoundInAnyLetterCase) {
    platform::setExecutableFolder(root + "/PrgBin");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.binFolder, root + "/prgbin");
}

TEST_F(Place, TheSourceFolderStandsInAndTheBinaryFolderKeepsItsName) {
    platform::setExecutableFolder(root + "/prgsrc");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.programRoot, root);
    EXPECT_EQ(installation.binFolder, root + "/prgbin");
}

TEST_F(Place, TheFirstProgramFolderInThePathCounts) {
    platform::setExecutableFolder("D:\\prgbin\\x\\prgbin");
    EXPECT_FALSE(openSystemDatabases());
    EXPECT_EQ(installation.programRoot, "D:");
    EXPECT_EQ(installation.binFolder, "D:\\prgbin");
    platform::setExecutableFolder(root + "/prgbin/prgsrc/prgbin");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.programRoot, root);
}

TEST_F(Place, TheBinaryFolderIsLookedForBeforeTheSourceFolder) {
    platform::setExecutableFolder(root + "/prgsrc/prgbin");
    EXPECT_FALSE(openSystemDatabases());
    EXPECT_EQ(installation.programRoot, root + "/prgsrc");
}

TEST_F(Place, OutsideAnyProgramFolderNothingOpensAndNothingIsShown) {
    platform::setExecutableFolder(root + "/bin");
    EXPECT_FALSE(openSystemDatabases());
    EXPECT_FALSE(connections.localConnection.isOpen());
    EXPECT_EQ(boxes, Lines{});
}

TEST_F(Place, WithoutALocalDatabaseNothingOpensAndNothingIsShown) {
    fs::remove(path("conf/usrcnfg.accdb"));
    EXPECT_FALSE(openSystemDatabases());
    EXPECT_EQ(installation.usrcnfgKind, 0);
    EXPECT_FALSE(connections.localOpen);
    EXPECT_EQ(boxes, Lines{});
}

TEST_F(Place, AFolderInThePlaceOfTheLocalDatabaseIsNoFile) {
    fs::remove(path("conf/usrcnfg.accdb"));
    fs::create_directory(path("conf/usrcnfg.accdb"));
    EXPECT_FALSE(openSystemDatabases());
    EXPECT_EQ(installation.usrcnfgKind, 0);
    EXPECT_EQ(boxes, Lines{});
}

TEST_F(Place, MissingDataAndReportFilesAreNoFailure) {
    fs::remove(path("data/gnrdb.accdb"));
    fs::remove(path("report/repdb.accdb"));
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.gnrdbKind, 0);
    EXPECT_EQ(installation.gnrdbPath, "");
    EXPECT_EQ(installation.repdbKind, 0);
}

TEST_F(Place, TheOlderFormIsTakenWhereTheNewerIsMissing) {
    for (const char* name : {"data/gnrdb", "conf/usrcnfg", "report/repdb"})
        fs::rename(path(name + std::string(".accdb")), path(name + std::string(".mdb")));
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.gnrdbPath, root + "/data/gnrdb.mdb");
    EXPECT_EQ(installation.gnrdbKind, 2);
    EXPECT_EQ(installation.usrcnfgKind, 2);
    EXPECT_EQ(installation.repdbKind, 2);
    EXPECT_EQ(connections.localText,
              "Provider=Microsoft.Jet.OLEDB.4.0;User ID=;Password=;Data Source=" + root + "/conf/usrcnfg.mdb;");
}

TEST_F(Place, OfBothFormsTheOlderIsNeverLookedAt) {
    std::ofstream(path("conf/usrcnfg.mdb")) << "no database";
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(connections.localText,
              "Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source=" + root + "/conf/usrcnfg.accdb;");
    EXPECT_EQ(boxes, Lines{});
}

TEST_F(Place, AMasterThatIsNoDatabaseShowsWhy) {
    std::ofstream(path("conf/usrcnfg.accdb")) << std::string(4096, 'x');
    EXPECT_FALSE(openSystemDatabases());
    EXPECT_FALSE(connections.localOpen);
    EXPECT_TRUE(onlyBox().starts_with("SYB_OPEN ERROR26 ")) << onlyBox();
    EXPECT_TRUE(onlyBox().ends_with("\rsysopen error")) << onlyBox();
}

TEST_F(Place, SettingsOfTheInstallation) {
    local("UPDATE 動作環境定義 SET 運用事業所コード = '002', CL更新実行区分 = ' 3x', バックアップ日付 = "
          "'20240514120000', "
          "運用条件切替日付 = '20240401x', バックアップ方法 = '2', バックアップ日指定 = '15', 月曜バックアップ = '1', "
          "日曜バックアップ = '7', バックアップ開始時刻 = ' 23:00', バックアップフォルダ = '/backup '");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.operatingOffice, "002");
    EXPECT_EQ(installation.sessionOffice, "002");
    EXPECT_EQ(installation.installType, 0);
    EXPECT_EQ(installation.clientUpdateMode, 3);
    EXPECT_EQ(installation.backupDate, "20240514");
    EXPECT_EQ(installation.conditionSwitchDate, "20240401");
    EXPECT_EQ(installation.backupMethod, 2);
    EXPECT_EQ(installation.backupDayGiven, 15);
    EXPECT_EQ(installation.backupWeekdays, (std::array{1, 0, 0, 0, 0, 0, 7}));
    EXPECT_EQ(installation.backupTime, " 23:00");
    EXPECT_EQ(installation.backupFolder, "/backup ");
}

TEST_F(Place, WithoutAnOperatingOfficeItIsTheWholeCompany) {
    local("UPDATE 動作環境定義 SET 運用事業所コード = NULL, インストール区分 = NULL");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.operatingOffice, "000");
    EXPECT_EQ(installation.sessionOffice, "000");
    EXPECT_EQ(installation.installType, 0);
}

TEST_F(Place, WithoutARowOfSettingsEverythingStaysEmpty) {
    local("DELETE FROM 動作環境定義");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.operatingOffice, "");
    EXPECT_EQ(installation.sessionOffice, "");
}

TEST_F(Place, TheDefinitionIsTrimmedButForItsKind) {
    local("UPDATE データベース定義 SET db = 'A', dbmw = ' m ', ドライバ名 = ' d ', データベース名 = ' n ', サーバー名 "
          "= ' s ', "
          "接続文字列 = ' c ', ユーザーID = ' u ', パスワード = ' p ', プロバイダ名 = ' v ', データソース名 = ' f '");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.databaseMiddleware, " m ");
    EXPECT_EQ(installation.driverName, "d");
    EXPECT_EQ(installation.databaseName, "n");
    EXPECT_EQ(installation.serverName, "s");
    EXPECT_EQ(installation.connectionText, "c");
    EXPECT_EQ(installation.databaseUser, "u");
    EXPECT_EQ(installation.databasePassword, "p");
    EXPECT_EQ(installation.providerName, "v");
    EXPECT_EQ(installation.dataSourceName, "f");
}

TEST_F(Place, ANullKindRaisesAndIsNeitherShownNorWrittenDown) {
    clearDefinition("db");
    EXPECT_THROW(openSystemDatabases(), database::DatabaseError);
    EXPECT_FALSE(connections.localOpen);
    EXPECT_EQ(boxes, Lines{});
    EXPECT_EQ(history(), Lines{});
}

TEST_F(Place, ANullMiddlewareNameRaisesToo) {
    clearDefinition("dbmw");
    EXPECT_THROW(openSystemDatabases(), database::DatabaseError);
}

TEST_F(Place, AFailingReadOfTheDefinitionsIsALineLikeAnyOther) {
    database::breakStatements(database::Role::local, "データベース定義");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.databaseKind, "");
    EXPECT_EQ(history(), Lines{"エラー broken on purposeSELECT * FROM データベース定義 WHERE 情報種類 = ''GNR''"});
}

TEST_F(Place, AnUnknownInstallationNamesTheFileWithoutAFolderAndRaises) {
    local("UPDATE 動作環境定義 SET インストール区分 = '2'");
    EXPECT_THROW(openSystemDatabases(), database::DatabaseError);
    EXPECT_EQ(installation.localConfFolder, "");
    EXPECT_EQ(installation.localReportFolder, "");
    EXPECT_EQ(connections.localText,
              "Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source=/usrcnfg.accdb;");
    EXPECT_EQ(boxes, Lines{});
}

TEST_F(Place, AFirstTimeUserGetsCopiesAndASecondStartNone) {
    local("UPDATE 動作環境定義 SET インストール区分 = '1'");
    ASSERT_TRUE(openSystemDatabases());
    const std::string mine = root + "/users/operator";
    EXPECT_EQ(installation.localConfFolder, mine + "/conf");
    EXPECT_EQ(installation.localReportFolder, mine + "/report");
    for (const char* file : {"/conf/usrcnfg.accdb", "/report/repdb.accdb", "/report/repfrmdb.accdb"})
        EXPECT_TRUE(fs::exists(mine + file)) << file;
    resetSession();
    fs::remove(mine + "/report/repfrmdb.accdb");
    change(mine + "/conf/usrcnfg.accdb", "UPDATE 動作環境定義 SET 運用事業所コード = '001'");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.operatingOffice, "001"); // the user's own settings, not overwritten by the master's
    EXPECT_FALSE(fs::exists(mine + "/report/repfrmdb.accdb"));
    EXPECT_EQ(boxes, Lines{});
}

TEST_F(Place, TheUsersCopyHoldsEverythingCommittedToTheMaster) {
    local("UPDATE 動作環境定義 SET インストール区分 = '1'");
    auto busy = database::openConnection("Provider=Microsoft.ACE.OLEDB.12.0;Data Source=" + path("conf/usrcnfg.accdb"),
                                         database::Role::local);
    ASSERT_TRUE(busy);
    ASSERT_TRUE(busy.value().execute("UPDATE 動作環境定義 SET 運用事業所コード = '002'")); // still beside the file
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.operatingOffice, "002");
}

TEST_F(Place, OlderReportFilesAreCopiedWithTheNewerFormsFile) {
    local("UPDATE 動作環境定義 SET インストール区分 = '1'");
    fs::copy(path("report/repfrmdb.accdb"), path("report/repfrmdb.mdb"));
    fs::rename(path("report/repdb.accdb"), path("report/repdb.mdb"));
    ASSERT_TRUE(openSystemDatabases());
    for (const char* file : {"repdb.mdb", "repfrmdb.mdb", "repfrmdb.accdb"})
        EXPECT_TRUE(fs::exists(root + "/users/operator/report/" + file)) << file;
}

TEST_F(Place, WithoutReportFilesNoReportFolderIsMade) {
    local("UPDATE 動作環境定義 SET インストール区分 = '1'");
    fs::remove(path("report/repdb.accdb"));
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_FALSE(fs::exists(root + "/users/operator/report"));
}

TEST_F(Place, AFailingCopyIsPassedOver) {
    local("UPDATE 動作環境定義 SET インストール区分 = '1'");
    fs::remove(path("report/repfrmdb.accdb"));
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_TRUE(fs::exists(root + "/users/operator/report/repdb.accdb"));
    EXPECT_EQ(boxes, Lines{});
}

TEST_F(Place, TextsOfTheMainConnectionByKind) {
    const std::string columns =
        "UPDATE データベース定義 SET ユーザーID = 'u', パスワード = 'p', サーバー名 = データソース名, "
        "データベース名 = 'n', db = ";
    const std::string head = "Provider=Microsoft.ACE.OLEDB.12.0;User ID=u;Password=p;Data Source=";
    for (const auto& [kind, tail] : {std::pair{"A", ""}, std::pair{"O", ""}, std::pair{"S", "Initial Catalog=n;"}}) {
        local(columns + "'" + kind + "'");
        resetSession();
        ASSERT_TRUE(openSystemDatabases());
        EXPECT_TRUE(openMainDatabase()) << kind;
        EXPECT_EQ(connections.mainText, head + root + "/data/maindb.accdb;" + tail);
        EXPECT_TRUE(connections.mainConnection.isOpen());
    }
}

TEST_F(Place, KindSUsesTheServerAndTheOthersTheDataSource) {
    local("UPDATE データベース定義 SET サーバー名 = '/server', データソース名 = '/source'");
    for (const auto& [kind, place] : {std::pair{"A", "/source;"}, std::pair{"S", "/server;Initial Catalog=;"}}) {
        local("UPDATE データベース定義 SET db = '" + std::string(kind) + "'");
        resetSession();
        ASSERT_TRUE(openSystemDatabases());
        EXPECT_FALSE(openMainDatabase());
        EXPECT_TRUE(connections.mainText.ends_with(std::string("Data Source=") + place)) << connections.mainText;
    }
}

TEST_F(Place, AMainDatabaseThatCannotBeOpenedIsALineAndNoStartUpWorkFollows) {
    local("UPDATE データベース定義 SET データソース名 = '/none/maindb.accdb', パスワード = 'secret'");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_FALSE(openMainDatabase());
    EXPECT_FALSE(connections.mainOpen);
    ASSERT_EQ(history().size(), 1U);
    EXPECT_TRUE(history()[0].starts_with("エラー DB_OPEN ERROR14 ")) << history()[0];
    EXPECT_EQ(history()[0].find("secret"), std::string::npos);
    EXPECT_EQ(sent(journal::Channel::sentMain), Lines{});
    EXPECT_EQ(boxes, Lines{});
}

TEST_F(Place, AnUnknownKindOpensNothingAndCountsAsOpen) {
    local("DELETE FROM データベース定義");
    ASSERT_TRUE(openSystemDatabases());
    EXPECT_EQ(installation.databaseKind, "");
    EXPECT_TRUE(openMainDatabase());
    EXPECT_TRUE(connections.mainOpen);
    EXPECT_FALSE(connections.mainConnection.isOpen());
    EXPECT_EQ(history().size(), 4U); // cleaning, reading and writing the usage record, and the rights
    EXPECT_EQ(staff.staffCode, "00001");
}

TEST_F(Place, ReopeningTheLocalDatabaseReadsNothing) {
    ASSERT_TRUE(openSystemDatabases());
    const auto before = sent(journal::Channel::sentLocal).size();
    local("UPDATE 動作環境定義 SET 運用事業所コード = '002'");
    EXPECT_TRUE(reopenLocalConnection());
    EXPECT_TRUE(connections.localOpen);
    EXPECT_EQ(sent(journal::Channel::sentLocal).size(), before);
    EXPECT_EQ(installation.operatingOffice, "000");
    EXPECT_TRUE(executeLocalSql("UPDATE 動作環境定義 SET バックアップ方法 = '1'"));
}

TEST_F(Place, ALocalDatabaseThatIsGoneFailsToReopenSilently) {
    ASSERT_TRUE(openSystemDatabases());
    database::breakOpening(database::Role::local);
    EXPECT_FALSE(reopenLocalConnection());
    EXPECT_FALSE(connections.localOpen);
    EXPECT_FALSE(connections.localConnection.isOpen());
    EXPECT_EQ(boxes, Lines{});
}

} // namespace kestrel
