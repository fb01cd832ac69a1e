#include "data/modConnections.hpp"

#include "company/modRights.hpp"
#include "company/modStaff.hpp"
#include "data/modFiles.hpp"
#include "data/modGateway.hpp"
#include "data/modHistory.hpp"
#include "entry/msgお待ち.hpp"
#include "numbering/modOfficeSuite.hpp"
#include "platform/database/connection_text.hpp"
#include "platform/database/files.hpp"
#include "platform/identity.hpp"
#include "platform/paths.hpp"
#include "screen/message.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

namespace kestrel {

namespace {

constexpr const char* environmentSql = "SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'";

// The two forms of a local database, by kind: 1 and 2; kind 0 stands for no file.
struct FileForm {
    const char* extension;
    const char* provider;
};
constexpr FileForm fileForms[] = {
    {"", ""},
    {".accdb", "Provider=Microsoft.ACE.OLEDB.12.0;"},
    {".mdb", "Provider=Microsoft.Jet.OLEDB.4.0;"},
};

// The newer form wins, and the older one is then never looked at.
int findKind(const std::string& pathWithoutExtension) {
    for (int kind = 1; kind <= 2; ++kind)
        if (fileExists(pathWithoutExtension + fileForms[kind].extension)) return kind;
    return 0;
}

std::string usrcnfgName() {
    return std::string("usrcnfg") + fileForms[installation.usrcnfgKind].extension;
}

void takeIdentity() {
    installation.userName = platform::userName();
    installation.computerName = platform::computerName();
    installation.userId = installation.userName;
}

// Everything before the program folder in the path of the executable, with its closing separator. The first occurrence
// counts; nothing when the executable lies in no program folder.
std::optional<std::string> findRoot() {
    const std::string folder = platform::executableFolder();
    const std::string lower = text::lowerAscii(folder);
    for (const char* programFolder : {"prgbin", "prgsrc"})
        if (const auto at = lower.find(programFolder); at != std::string::npos) return folder.substr(0, at);
    return std::nullopt;
}

void locateFiles(const std::string& root) {
    installation.programRoot = root.substr(0, root.empty() ? 0 : root.size() - 1);
    installation.binFolder = root + "prgbin";
    installation.gnrdbKind = findKind(root + "data/gnrdb");
    if (installation.gnrdbKind != 0)
        installation.gnrdbPath = root + "data/gnrdb" + fileForms[installation.gnrdbKind].extension;
    installation.usrcnfgKind = findKind(root + "conf/usrcnfg");
    installation.confFolder = root + "conf";
    installation.reportFolder = root + "report";
    installation.manualFolder = root + "manual";
    installation.repdbKind = findKind(installation.reportFolder + "/repdb");
}

platform::Status openLocal(const std::string& path) {
    connections.localText =
        std::string(fileForms[installation.usrcnfgKind].provider) + "User ID=;Password=;Data Source=" + path;
    auto opened = database::openConnection(connections.localText, database::Role::local);
    if (!opened) return opened.failure();
    connections.localConnection = std::move(opened.value());
    return platform::done();
}

bool openMasterConfiguration() {
    const auto status = openLocal(platform::joinPath(installation.confFolder, usrcnfgName()));
    if (status) return true;
    screen::message("SYB_OPEN ERROR" + std::to_string(status.failure().number) + " " + status.failure().description +
                    "\rsysopen error");
    return false;
}

// The closing semicolon belongs to the text.
platform::Status openConfigurationInUse() {
    const auto status = openLocal(platform::joinPath(installation.localConfFolder, usrcnfgName()) + ";");
    connections.localOpen = static_cast<bool>(status);
    return status;
}

void closeLocal() {
    connections.localConnection.close();
    connections.localOpen = false;
}

std::string trimmed(const database::RecordSet& records, const char* column) {
    return text::trim(records.text(column, ""));
}

int number(const database::RecordSet& records, const char* column) {
    constexpr long long largest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(text::leadingNumber(records.text(column, "")), -largest, largest));
}

// A row without a kind or middleware name is no definition: a null there raises.
void takeDatabaseDefinition(const database::RecordSet& records) {
    installation.databaseKind = records.text("db");
    installation.databaseMiddleware = records.text("dbmw");
    installation.driverName = trimmed(records, "ドライバ名");
    installation.databaseName = trimmed(records, "データベース名");
    installation.serverName = trimmed(records, "サーバー名");
    installation.connectionText = trimmed(records, "接続文字列");
    installation.databaseUser = trimmed(records, "ユーザーID");
    installation.databasePassword = trimmed(records, "パスワード");
    installation.providerName = trimmed(records, "プロバイダ名");
    installation.dataSourceName = trimmed(records, "データソース名");
}

void takeInstallType(const database::RecordSet& records) {
    installation.operatingOffice = records.text("運用事業所コード", "000");
    installation.installType = number(records, "インストール区分");
    installation.clientUpdateMode = number(records, "CL更新実行区分");
}

void takeBackupSettings(const database::RecordSet& records) {
    constexpr const char* weekdays[] = {"月曜バックアップ", "火曜バックアップ", "水曜バックアップ", "木曜バックアップ",
                                        "金曜バックアップ", "土曜バックアップ", "日曜バックアップ"};
    installation.backupDate = text::first(records.text("バックアップ日付", ""), 8);
    installation.conditionSwitchDate = text::first(records.text("運用条件切替日付", ""), 8);
    installation.backupMethod = number(records, "バックアップ方法");
    installation.backupDayGiven = number(records, "バックアップ日指定");
    for (std::size_t day = 0; day < std::size(weekdays); ++day)
        installation.backupWeekdays[day] = number(records, weekdays[day]);
    installation.backupTime = records.text("バックアップ開始時刻", "");
    installation.backupFolder = records.text("バックアップフォルダ", "");
}

void readDatabaseDefinition() {
    database::RecordSet records;
    if (openLocalRecordset(records, "SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'"))
        takeDatabaseDefinition(records);
    records.close();
}

void readInstallType() {
    database::RecordSet records;
    if (openLocalRecordset(records, environmentSql)) takeInstallType(records);
    records.close();
}

void readEnvironment() {
    database::RecordSet records;
    if (openLocalRecordset(records, environmentSql)) {
        takeInstallType(records);
        takeBackupSettings(records);
    }
    records.close();
}

// Any other kind of installation leaves both folders empty: the file is then named with no folder in front.
void chooseLocalFolders(const std::string& root) {
    if (installation.installType == 0) {
        installation.localConfFolder = root + "conf";
        installation.localReportFolder = root + "report";
    } else if (installation.installType == 1) {
        installation.localConfFolder = root + "users/" + installation.userName + "/conf";
        installation.localReportFolder = root + "users/" + installation.userName + "/report";
        preparePerUserFiles();
    }
}

// A failure is passed over: what then can't be opened fails at its opening.
void copyLocalFile(const std::string& name, const std::string& from, const std::string& to) {
    static_cast<void>(database::copyDatabase(platform::joinPath(from, name), platform::joinPath(to, name)));
}

// An existing user keeps the files, also when one of them is missing: only a first start comes here.
void copyReportFiles(const std::string& extension) {
    std::vector<std::string> names = {"repdb" + extension, "repfrmdb" + extension};
    if (installation.repdbKind == 2) names.push_back("repfrmdb.accdb");
    for (const auto& name : names) copyLocalFile(name, installation.reportFolder, installation.localReportFolder);
}

std::string mainConnectionText() {
    return database::mainConnectionText({.kind = installation.databaseKind,
                                         .provider = installation.providerName,
                                         .user = installation.databaseUser,
                                         .password = installation.databasePassword,
                                         .dataSource = installation.dataSourceName,
                                         .server = installation.serverName,
                                         .catalog = installation.databaseName});
}

bool isKnownKind() {
    const std::string& kind = installation.databaseKind;
    return kind == "A" || kind == "O" || kind == "S";
}

platform::Status openMain() {
    connections.mainText = mainConnectionText();
    auto opened = database::openConnection(connections.mainText, database::Role::main);
    if (!opened) return opened.failure();
    connections.mainConnection = std::move(opened.value());
    return platform::done();
}

bool reportMainFailure(const platform::Failure& failure) {
    connections.mainOpen = false;
    writeErrorHistory("DB_OPEN ERROR" + std::to_string(failure.number) + " " + failure.description);
    return false;
}

} // namespace

bool openSystemDatabases() {
    takeIdentity();
    const auto root = findRoot();
    if (!root) return false;
    locateFiles(*root);
    if (installation.usrcnfgKind == 0) return false;
    if (!openMasterConfiguration()) return false;
    readDatabaseDefinition();
    readInstallType();
    closeLocal();
    chooseLocalFolders(*root);
    if (const auto status = openConfigurationInUse(); !status)
        throw database::DatabaseError(status.failure().description);
    readEnvironment();
    installation.sessionOffice = installation.operatingOffice;
    return true;
}

bool reopenLocalConnection() {
    closeLocal();
    return static_cast<bool>(openConfigurationInUse());
}

bool openMainDatabase() {
    // A kind that nobody knows opens nothing and counts as open: its statements then fail one by one, in the run
    // history.
    if (isKnownKind())
        if (const auto status = openMain(); !status) return reportMainFailure(status.failure());
    connections.mainOpen = true;
    cleanUsageRecords();
    writeUsageStart();
    if (readStartupStaff()) checkOperationRight(menuGroup, installation.programId, 0); // for the rights it reads
    return true;
}

void preparePerUserFiles() {
    const std::string configuration = platform::joinPath(installation.localConfFolder, usrcnfgName());
    makeFolderPath(configuration);
    if (!fileExists(configuration)) copyLocalFile(usrcnfgName(), installation.confFolder, installation.localConfFolder);
    if (installation.repdbKind == 0) return;

    const std::string extension = fileForms[installation.repdbKind].extension;
    const std::string reportDatabase = platform::joinPath(installation.localReportFolder, "repdb" + extension);
    makeFolderPath(reportDatabase);
    std::optional<WaitDialog> wait;
    if (!fileExists(reportDatabase)) {
        wait.emplace();
        copyReportFiles(extension);
    }
    // Where the office suite is, the copies' linked tables would now be turned to the copied repdb. Links of that kind
    // exist in the suite's own files alone; the databases of this platform have none, and nothing to turn.
    registerAccessFolder();
}

} // namespace kestrel
