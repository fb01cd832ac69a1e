#include "scenario/session_values.hpp"

#include "scenario/names.hpp"
#include "scenario/properties.hpp"
#include "scenario/scenario_error.hpp"
#include "session/companyValues.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"

#include <algorithm>
#include <variant>

namespace kestrel::scenario {

namespace {

using Place = std::variant<std::string*, int*, std::int16_t*, bool*, screen::Control**, screen::Window**>;

struct Row {
    std::string_view name;
    Place place;
};

// rosterSession stands first: where two records have a field of one name, a scenario means the one on the screen.
const Row rows[] = {
    {"名簿日付年", &rosterSession.名簿日付年},
    {"名簿日付月", &rosterSession.名簿日付月},
    {"名簿日付日", &rosterSession.名簿日付日},
    {"名簿日付", &rosterSession.名簿日付},
    {"番号基準日付", &rosterSession.番号基準日付},
    {"名簿No", &rosterSession.名簿No},
    {"名簿名称", &rosterSession.名簿名称},
    {"発送日付年", &rosterSession.発送日付年},
    {"発送日付月", &rosterSession.発送日付月},
    {"発送日付日", &rosterSession.発送日付日},
    {"発送日付", &rosterSession.発送日付},
    {"担当者コード", &rosterSession.担当者コード},
    {"担当者名", &rosterSession.担当者名},
    {"部門コード", &rosterSession.部門コード},
    {"部門名", &rosterSession.部門名},
    {"セクションコード", &rosterSession.セクションコード},
    {"セクション名", &rosterSession.セクション名},
    {"名簿宛先No", &rosterSession.名簿宛先No},
    {"宛先名称A", &rosterSession.宛先名称A},
    {"宛先名称B", &rosterSession.宛先名称B},
    {"宛先名称C", &rosterSession.宛先名称C},
    {"宛先郵便番号", &rosterSession.宛先郵便番号},
    {"宛先住所A", &rosterSession.宛先住所A},
    {"宛先住所B", &rosterSession.宛先住所B},
    {"宛先住所C", &rosterSession.宛先住所C},
    {"宛先電話", &rosterSession.宛先電話},
    {"宛先FAX", &rosterSession.宛先FAX},
    {"宛先HOMEPAGE", &rosterSession.宛先HOMEPAGE},
    {"宛先EMAIL", &rosterSession.宛先EMAIL},
    {"法人個人区分", &rosterSession.法人個人区分},
    {"発送区分", &rosterSession.発送区分},
    {"宛先摘要", &rosterSession.宛先摘要},
    {"得意先登録日付", &rosterSession.得意先登録日付},
    {"得意先コード", &rosterSession.得意先コード},
    {"納品先登録日付", &rosterSession.納品先登録日付},
    {"納品先コード", &rosterSession.納品先コード},
    {"仕入先登録日付", &rosterSession.仕入先登録日付},
    {"仕入先コード", &rosterSession.仕入先コード},
    {"メーカ登録日付", &rosterSession.メーカ登録日付},
    {"メーカコード", &rosterSession.メーカコード},
    {"宛先ID", &rosterSession.宛先ID},
    {"承認者コード", &rosterSession.承認者コード},
    {"承認日付", &rosterSession.承認日付},
    {"承認区分", &rosterSession.承認区分},
    {"登録日付", &rosterSession.登録日付},
    {"更新日付", &rosterSession.更新日付},
    {"previousRosterDate", &rosterSession.previousRosterDate},
    {"refreshing", &rosterSession.refreshing},
    {"newEntry", &rosterSession.newEntry},
    {"dirty", &rosterSession.dirty},
    {"linkStarted", &rosterSession.linkStarted},
    {"printChoice", &rosterSession.printChoice},
    {"operationKind", &rosterSession.operationKind},
    {"writeResult", &rosterSession.writeResult},
    {"writeMessage", &rosterSession.writeMessage},
    {"lookupCondition", &rosterSession.lookupCondition},
    {"lookupTarget", &rosterSession.lookupTarget},
    {"lookupNextControl", &rosterSession.lookupNextControl},
    {"lookupParent", &rosterSession.lookupParent},
    {"lookupNested", &rosterSession.lookupNested},
    {"lastLeftField", &rosterSession.lastLeftField},
    {"lastEnteredField", &rosterSession.lastEnteredField},
    {"firstField", &rosterSession.firstField},
    {"currentForm", &rosterSession.currentForm},
    {"linkCaller", &rosterSession.linkCaller},
    {"linkStartText", &rosterSession.linkStartText},
    {"linkReplyText", &rosterSession.linkReplyText},

    {"programId", &installation.programId},
    {"commandLine", &installation.commandLine},
    {"userName", &installation.userName},
    {"computerName", &installation.computerName},
    {"userId", &installation.userId},
    {"programRoot", &installation.programRoot},
    {"binFolder", &installation.binFolder},
    {"confFolder", &installation.confFolder},
    {"reportFolder", &installation.reportFolder},
    {"manualFolder", &installation.manualFolder},
    {"gnrdbPath", &installation.gnrdbPath},
    {"gnrdbKind", &installation.gnrdbKind},
    {"usrcnfgKind", &installation.usrcnfgKind},
    {"repdbKind", &installation.repdbKind},
    {"localConfFolder", &installation.localConfFolder},
    {"localReportFolder", &installation.localReportFolder},
    {"databaseKind", &installation.databaseKind},
    {"databaseMiddleware", &installation.databaseMiddleware},
    {"driverName", &installation.driverName},
    {"databaseName", &installation.databaseName},
    {"serverName", &installation.serverName},
    {"connectionText", &installation.connectionText},
    {"databaseUser", &installation.databaseUser},
    {"providerName", &installation.providerName},
    {"dataSourceName", &installation.dataSourceName},
    {"operatingOffice", &installation.operatingOffice},
    {"installType", &installation.installType},
    {"clientUpdateMode", &installation.clientUpdateMode},
    {"sessionOffice", &installation.sessionOffice},
    {"runCounter", &installation.runCounter},
    {"backupDate", &installation.backupDate},
    {"conditionSwitchDate", &installation.conditionSwitchDate},
    {"backupMethod", &installation.backupMethod},
    {"backupDayGiven", &installation.backupDayGiven},
    {"backupTime", &installation.backupTime},
    {"backupFolder", &installation.backupFolder},

    {"mainOpen", &connections.mainOpen},
    {"localOpen", &connections.localOpen},

    {"staffCode", &staff.staffCode},
    {"signedInName", &staff.signedInName},
    {"事業所コード", &staff.事業所コード},
    {"役職コード", &staff.役職コード},
    {"ログインID", &staff.ログインID},
    {"社員区分", &staff.社員区分},
    {"accessLevel", &staff.accessLevel},
    {"signedIn", &staff.signedIn},
    {"処理分類0操作許可", &staff.classRights[0]},
    {"処理分類1操作許可", &staff.classRights[1]},
    {"処理分類2操作許可", &staff.classRights[2]},
    {"処理分類3操作許可", &staff.classRights[3]},
    {"処理分類4操作許可", &staff.classRights[4]},
    {"処理分類5操作許可", &staff.classRights[5]},
    {"処理分類6操作許可", &staff.classRights[6]},
    {"処理分類7操作許可", &staff.classRights[7]},
    {"処理分類8操作許可", &staff.classRights[8]},
    {"処理分類9操作許可", &staff.classRights[9]},
    {"操作許可", &staff.operationRights[0]},
    {"入力許可", &staff.operationRights[1]},
    {"修正許可", &staff.operationRights[2]},
    {"削除許可", &staff.operationRights[3]},
    {"印刷許可", &staff.operationRights[4]},
    {"プレビュ許可", &staff.operationRights[5]},
    {"テキスト出力許可", &staff.operationRights[6]},
    {"イメージ出力許可", &staff.operationRights[7]},
    {"名称", &company.名称},
    {"郵便番号", &company.郵便番号},
    {"決算月", &company.決算月},
    {"決算日", &company.決算日},
    {"締日区分", &company.締日区分},
    {"締日", &company.締日},
    {"決済方法", &company.決済方法},
    {"決済月", &company.決済月},
    {"決済日", &company.決済日},
    {"documentFolder", &company.documentFolder},
    {"伝票番号管理区分", &company.伝票番号管理区分},
    {"pinRequired", &company.pinRequired},
    {"officeCount", &company.officeCount},
    {"officeName", &company.officeName},
    {"officePrivilegedPin", &company.officePrivilegedPin},
    {"総合振込ファイル", &company.folders.総合振込ファイル},
    {"基本読込フォルダ", &company.folders.基本読込フォルダ},
    {"帳票イメージフォルダ", &company.folders.帳票イメージフォルダ},
    {"その他読込ファイル", &company.folders.その他読込ファイル},
    {"本支店連携フォルダ", &company.folders.本支店連携フォルダ},
    {"テキスト出力フォルダ", &company.folders.テキスト出力フォルダ},
    {"BACKUPフォルダ", &company.folders.BACKUPフォルダ},
};

const Row& rowNamed(std::string_view name) {
    const auto found =
        std::find_if(std::begin(rows), std::end(rows), [name](const Row& row) { return row.name == name; });
    if (found == std::end(rows)) throw ScenarioError("no session value \"" + std::string(name) + "\"");
    return *found;
}

std::string read(const std::string* value) {
    return *value;
}
std::string read(const int* value) {
    return std::to_string(*value);
}
std::string read(const std::int16_t* value) {
    return std::to_string(*value);
}
std::string read(const bool* value) {
    return yesNo(*value);
}
template <class Named> std::string read(Named* const* reference) {
    return *reference ? (*reference)->name : "NULL";
}

void write(std::string* value, std::string_view text) {
    *value = text;
}
void write(int* value, std::string_view text) {
    *value = wholeArgument(text);
}
void write(std::int16_t* value, std::string_view text) {
    *value = static_cast<std::int16_t>(wholeArgument(text));
}
void write(bool* value, std::string_view text) {
    *value = flagArgument(text);
}
void write(screen::Control** reference, std::string_view text) {
    *reference = text == "NULL" ? nullptr : &controlNamed(text);
}
void write(screen::Window** reference, std::string_view text) {
    *reference = text == "NULL" ? nullptr : screen::findShownWindow(text);
    if (!*reference && text != "NULL") throw ScenarioError("no window \"" + std::string(text) + "\" is open");
}

} // namespace

std::string readSessionValue(std::string_view name) {
    return std::visit([](auto place) { return read(place); }, rowNamed(name).place);
}

void writeSessionValue(std::string_view name, std::string_view text) {
    std::visit([text](auto place) { write(place, text); }, rowNamed(name).place);
}

std::vector<std::string> sessionValueNames() {
    std::vector<std::string> names;
    for (const Row& row : rows) names.emplace_back(row.name);
    return names;
}

} // namespace kestrel::scenario
