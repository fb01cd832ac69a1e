#include "data/modLink.hpp"

#include "company/modStaff.hpp"
#include "data/modConnections.hpp"
#include "data/modGateway.hpp"
#include "data/sqlValues.hpp"
#include "platform/clock.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"

namespace kestrel {

namespace {

std::string requestText(std::string_view commandLine, std::string_view earliest) {
    return "SELECT * FROM プログラム連携情報"
           " WHERE 発信日時 >= '" +
           std::string(earliest) + "' AND 受信プログラムID = '" + installation.programId + "' AND 起動連携情報 = '" +
           std::string(commandLine) + "' AND 連携区分 = '00'";
}

// Keyed by the row that was read: when another process took it first, nothing is deleted.
std::string deleteText(const database::RecordSet& request) {
    return "DELETE FROM プログラム連携情報"
           " WHERE 発信日時 = '" +
           request.text("発信日時") + "' AND 発信プログラムID = '" + request.text("発信プログラムID") +
           "' AND 受信プログラムID = '" + request.text("受信プログラムID") + "' AND 連携区分 = '00'";
}

constexpr const char* answerText = "INSERT INTO プログラム連携情報 ("
                                   "発信日時,"
                                   "発信プログラムID,"
                                   "受信プログラムID,"
                                   "受信期限,"
                                   "連携区分,"
                                   "起動連携情報,"
                                   "終了連携情報,"
                                   "運用事業所コード,"
                                   "起動担当者コード,"
                                   "ユーザID)"
                                   "VALUES ";

} // namespace

void receiveLinkMessage(std::string_view commandLine, std::string_view earliest) {
    rosterSession.linkCaller.clear();
    database::RecordSet request;
    if (openLocalRecordset(request, requestText(commandLine, earliest))) {
        rosterSession.linkCaller = request.text("発信プログラムID");
        rosterSession.linkStartText = request.text("起動連携情報");
        executeLocalSql(deleteText(request));
    }
    request.close();
}

void sendLinkAnswer(std::string_view text) {
    readStartupStaff();
    rosterSession.linkReplyText = text;
    const std::string now = platform::stampText(platform::now());
    executeLocalSql(answerText + valueList({now, rosterSession.linkCaller, installation.programId, now, "99",
                                            rosterSession.linkStartText, rosterSession.linkReplyText,
                                            installation.operatingOffice, staff.staffCode, installation.userId}));
    reopenLocalConnection();
}

} // namespace kestrel
