#include "data/modHistory.hpp"

#include "company/modStaff.hpp"
#include "data/modGateway.hpp"
#include "platform/clock.hpp"
#include "screen/ending.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"
#include "values/modValues.hpp"

#include <string>

namespace kestrel {

namespace {

std::string stampNow() {
    return platform::stampText(platform::now());
}

// Statement texts are quoted twice, so that one apostrophe of the text stands as two in the stored line.
std::string quotedTwice(std::string_view sql) {
    return quoteSqlText(quoteSqlText(sql));
}

// One line of the run. A failure is dropped without a trace: there is nowhere left to report it. The number counts all
// the same.
bool writeLine(const std::string& summary) {
    if (screen::ended()) return false;
    ++installation.runCounter;
    const std::string sql = "INSERT INTO プログラム稼動履歴 (実行日付,プログラムID,proccounter,摘要,運用事業所コード,"
                            "起動担当者コード,ユーザID)VALUES ('" +
                            stampNow() + "', '" + installation.programId + "', '" +
                            text::zeroFilled(installation.runCounter, 12) + "', '" + summary + "', '" +
                            installation.operatingOffice + "', '" + staff.staffCode + "', '" + installation.userId +
                            "')";
    return static_cast<bool>(connections.localConnection.execute(sql));
}

std::string ownUsageRow() {
    return " WHERE コンピュータID = '" + installation.computerName + "' AND ユーザID = '" + installation.userName + "'";
}

bool usageRowExists() {
    database::RecordSet records;
    const bool found = openRecordset(records, "SELECT * FROM 使用状況" + ownUsageRow(), false);
    records.close();
    return found;
}

void updateUsage(const std::string& column, const std::string& stamp) {
    executeSql("UPDATE 使用状況 SET プログラムID = '" + installation.programId + "', " + column + " = '" + stamp + "'" +
                   ownUsageRow(),
               false);
}

void insertUsage(const std::string& started, const std::string& ended) {
    executeSql("INSERT INTO 使用状況 (コンピュータID,ユーザID,プログラムID,開始日時,終了日時)VALUES ('" +
                   installation.computerName + "', '" + installation.userName + "', '" + installation.programId +
                   "', '" + started + "', '" + ended + "')",
               false);
}

} // namespace

void writeRunStart() {
    try {
        readStartupStaff(); // so that the line carries the member's code
        writeLine("開始 " + quoteSqlText(text::trim(installation.commandLine)));
    } catch (const database::DatabaseError&) {
        // Dropped like a line that can't be written.
    }
}

void writeRunEnd() {
    if (writeLine("終了")) writeUsageEnd();
}

void writeQueryHistory(std::string_view sql) {
    // The suite's update monitor polls; its polling would drown the history.
    if (text::contains(installation.programId, "更新モニタ") && text::contains(sql, "未集計情報")) return;
    writeLine("出力終了 " + quotedTwice(sql));
}

void writeErrorHistory(std::string_view text) {
    writeLine("エラー " + quotedTwice(text));
}

void cleanUsageRecords() {
    const std::string lastMonth = platform::dateText(platform::monthsLater(platform::now(), -1));
    executeSql("DELETE FROM 使用状況 WHERE 終了日時 < '" + lastMonth + "' AND 終了日時 <> ''", false);
}

void writeUsageStart() {
    const bool found = usageRowExists();
    const std::string stamp = stampNow();
    if (found) return updateUsage("開始日時", stamp);
    insertUsage(stamp, "");
}

void writeUsageEnd() {
    const bool found = usageRowExists();
    const std::string stamp = stampNow();
    if (found) return updateUsage("終了日時", stamp);
    insertUsage("", stamp);
}

} // namespace kestrel
