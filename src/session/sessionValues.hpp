// The session values beside rosterSession: of the installation and its connections, of the company, of the signed-in
// member. All live as long as the process; resetSession() puts everything back to how a process begins.
#pragma once

#include "platform/database/connection.hpp"

#include <array>
#include <cstdint>
#include <string>

namespace kestrel {

inline constexpr const char* menuGroup = "営業支援";

struct InstallationValues {
    std::string programId = "連絡台帳入力"; // one variable, so that a run can be another member of the suite
    std::string commandLine;                // arguments joined with one blank; trimmed by who reads it
    std::string userName, computerName, userId;
    std::string programRoot, binFolder, confFolder, reportFolder, manualFolder;
    std::string gnrdbPath;
    int gnrdbKind = 0, usrcnfgKind = 0, repdbKind = 0; // 0 no file, 1 .accdb, 2 .mdb
    std::string localConfFolder, localReportFolder;
    std::string databaseKind; // "A", "S" or "O"
    std::string databaseMiddleware, driverName, databaseName, serverName, connectionText;
    std::string databaseUser, databasePassword, providerName, dataSourceName;
    std::string operatingOffice;                       // 運用事業所コード
    int installType = 0;                               // インストール区分
    int clientUpdateMode = 0;                          // CL更新実行区分
    std::string sessionOffice;                         // office of the records on the screen
    int screenWidthPixels = 0, screenHeightPixels = 0; // 0: not known
    int runCounter = 0;                                // lines of this run in the run history

    // Settings of the suite's backup; read here, acted on elsewhere.
    std::string backupDate, conditionSwitchDate;
    int backupMethod = 0, backupDayGiven = 0;
    std::array<int, 7> backupWeekdays{}; // Monday first
    std::string backupTime, backupFolder;
};

struct Connections {
    database::Connection mainConnection{database::Role::main}, localConnection{database::Role::local};
    bool mainOpen = false, localOpen = false;
    std::string mainText, localText; // the texts they were last opened with
};

struct StaffValues {
    std::string staffCode;
    std::string signedInName;
    std::string 事業所コード, 部門コード, セクションコード, 役職コード, ログインID;
    std::int16_t 社員区分 = 0;
    std::int16_t accessLevel = 0;
    bool signedIn = false;
    std::array<std::string, 10> classRights; // 処理分類0操作許可 to 処理分類9操作許可
    std::array<std::string, 8>
        operationRights; // 操作, 入力, 修正, 削除, 印刷, プレビュ, テキスト出力, イメージ出力 許可
};

inline InstallationValues installation;
inline Connections connections;
inline StaffValues staff;

void resetSession();

} // namespace kestrel
