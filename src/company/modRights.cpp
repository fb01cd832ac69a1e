#include "company/modRights.hpp"

#include "company/modOffices.hpp"
#include "company/staffColumns.hpp"
#include "data/modGateway.hpp"
#include "screen/message.hpp"
#include "screen/window.hpp"
#include "session/companyValues.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"
#include "values/modValues.hpp"

#include <algorithm>
#include <iterator>

namespace kestrel {

namespace {

// The menus that have a table of their own.
constexpr std::string_view menus[] = {"営業支援", "営業支援データ管理", "営業支援補助機能", "営業支援サービスメニュ"};

bool permits(const std::string& right) {
    return text::leadingNumber(right) == 0;
}

bool wholeCompany() {
    return installation.operatingOffice == zeroString(3);
}

std::string ownRowText(std::string_view menu, std::string_view programId) {
    std::string sql = "SELECT 担当者別操作許可プログラム.*"
                      " FROM 担当者別操作許可プログラム"
                      " WHERE 担当者別操作許可プログラム.担当者コード = '" +
                      staff.staffCode + "'";
    if (std::find(std::begin(menus), std::end(menus), menu) != std::end(menus))
        sql += " AND 担当者別操作許可プログラム.業務メニュ = '" + std::string(menu) + "'";
    return sql + " AND 担当者別操作許可プログラム.プログラムID = '" + std::string(programId) + "'";
}

// A row for this member and this program: its rights replace those of the member for the rest of the run.
bool takeOwnRow(std::string_view menu, std::string_view programId) {
    database::RecordSet records;
    const bool found = openRecordset(records, ownRowText(menu, programId), false);
    if (found)
        for (std::size_t i = 0; i < operationRightColumns.size(); ++i)
            staff.operationRights[i] = records.text(operationRightColumns[i], "");
    records.close();
    return found;
}

// Class 3 belongs to the offices: with several of them it is refused to the whole company.
bool officeClassPermits() {
    if (company.officeCount < 1) return true;
    return !wholeCompany() && permits(staff.classRights[3]);
}

bool classPermits(long long processClass) {
    if (processClass == 3) return officeClassPermits();
    if (processClass < 0 || processClass > 9) return true;
    return permits(staff.classRights[static_cast<std::size_t>(processClass)]);
}

bool menuPermits(std::string_view menu, std::string_view programId) {
    database::RecordSet records;
    const bool known = openLocalRecordset(records, "SELECT * FROM " + std::string(menu) + " WHERE プログラムID = '" +
                                                       std::string(programId) + "'");
    const bool permitted = known && classPermits(text::leadingNumber(records.text("処理分類", "")));
    records.close();
    return permitted;
}

bool kindPermits(int rightKind) {
    if (rightKind < 0 || rightKind > 7) return true;
    return permits(staff.operationRights[static_cast<std::size_t>(rightKind)]);
}

std::string officeInTitle() {
    if (wholeCompany()) return company.officeCount > 0 ? "(全社)" : "";
    return text::trim(company.officeName).empty() ? "" : "(" + company.officeName + ")";
}

void readOfficeDisplayName() {
    database::RecordSet records;
    if (openOffice(records, installation.operatingOffice)) company.officeDisplayName = records.text("名称", "");
    records.close();
}

} // namespace

bool checkOperationRight(std::string_view menu, std::string_view programId, int rightKind) {
    const bool ownRow = !staff.staffCode.empty() && takeOwnRow(menu, programId);
    const bool permitted = ownRow ? permits(staff.operationRights[0]) : menuPermits(menu, programId);
    return permitted && kindPermits(rightKind);
}

void registerKeyFields(std::string_view menu, std::string_view programId, const std::array<std::string, 26>& names) {
    std::string sql = "UPDATE " + std::string(menu) + " SET ";
    for (std::size_t i = 0; i < names.size(); ++i)
        sql += " 条件項目名" + std::string(1, static_cast<char>('A' + i)) + " = '" + names[i] +
               (i + 1 < names.size() ? "'," : "'");
    sql += " WHERE プログラムID = '" + std::string(programId) + "'";
    if (!executeLocalSql(sql)) screen::message("システムデータベースに問題があり登録できません");
}

void registerLinkKeys(std::string_view menu, std::string_view programId) {
    registerKeyFields(menu, programId, {"事業所コード", "番号基準日付", "名簿No", "名簿宛先No"});
}

void showProgramTitle() {
    readOfficeDisplayName();
    std::string title = installation.programId + officeInTitle();
    if (!staff.staffCode.empty()) title += "「" + staff.signedInName + "」";
    screen::Window* form = rosterSession.currentForm;
    screen::Control* panel = form == nullptr ? nullptr : screen::findControl(*form, "prg_ttl");
    if (panel != nullptr) screen::setCaption(*panel, title);
}

} // namespace kestrel
