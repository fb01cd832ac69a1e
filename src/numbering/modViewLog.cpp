#include "numbering/modViewLog.hpp"

#include "data/modGateway.hpp"
#include "data/sqlValues.hpp"
#include "numbering/modNumbers.hpp"
#include "platform/clock.hpp"
#include "session/sessionValues.hpp"
#include "values/writerStamp.hpp"

namespace kestrel {

namespace {

constexpr std::string_view viewRegister = "01110";

bool isTaken(const std::string& base, const std::string& number) {
    database::RecordSet records;
    const bool taken = openRecordset(records,
                                     "SELECT 閲覧No FROM T閲覧"
                                     " WHERE 事業所コード = '" +
                                         installation.sessionOffice + "' AND 番号基準日付 = '" + base +
                                         "' AND 閲覧No = '" + number + "'",
                                     false);
    records.close();
    return taken;
}

// Draws until a number is free. A register that gives one number twice doesn't move: the search ends there, or it would
// never end.
std::string freeNumber(const std::string& base) {
    std::string before, number = takeNextNumber(viewRegister, base, installation.operatingOffice);
    while (isTaken(base, number) && number != before) {
        before = number;
        number = takeNextNumber(viewRegister, base, installation.operatingOffice);
    }
    return number;
}

constexpr const char* insertText = "INSERT INTO [T閲覧] "
                                   "([事業所コード]"
                                   ",[番号基準日付]"
                                   ",[閲覧No]"
                                   ",[閲覧日付]"
                                   ",[閲覧時刻]"
                                   ",[担当者コード]"
                                   ",[担当者名]"
                                   ",[閲覧情報]"
                                   ",[伝票事業所コード]"
                                   ",[伝票番号基準日付]"
                                   ",[伝票No]"
                                   ",[キー項目]"
                                   ",[閲覧区分]"
                                   ",[閲覧メモ]"
                                   ",[承認日付]"
                                   ",[承認者コード]"
                                   ",[承認区分]"
                                   ",[ユーザID]"
                                   ",[登録日付]"
                                   ",[更新日付])"
                                   " VALUES ";

} // namespace

void writeViewRecord(std::string_view viewInfo, std::string_view slipOffice, std::string_view slipBaseDate,
                     std::string_view slipNo, std::string_view keyItem) {
    const std::string today = platform::dateText(platform::now());
    const std::string base = numberBaseDate(viewRegister, today);
    const std::string number = freeNumber(base);
    const platform::Moment now = platform::now();
    executeSql(insertText + valueList({installation.sessionOffice,
                                       base,
                                       number,
                                       today,
                                       platform::timeText(now),
                                       staff.staffCode,
                                       staff.signedInName,
                                       viewInfo,
                                       slipOffice,
                                       slipBaseDate,
                                       slipNo,
                                       keyItem,
                                       "0",
                                       "",
                                       "",
                                       "",
                                       "0",
                                       writerStamp(),
                                       platform::stampText(now),
                                       ""}),
               false);
}

} // namespace kestrel
