#include "company/modStaff.hpp"

#include "company/modRights.hpp"
#include "company/staffColumns.hpp"
#include "data/modGateway.hpp"
#include "screen/message.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "values/columns.hpp"

namespace kestrel {

namespace {

constexpr Column<StaffValues> staffColumns[] = {
    {"コード", &StaffValues::staffCode},
    {"氏名", &StaffValues::signedInName},
    {"事業所コード", &StaffValues::事業所コード},
    {"部門コード", &StaffValues::部門コード},
    {"セクションコード", &StaffValues::セクションコード},
    {"役職コード", &StaffValues::役職コード},
    {"社員区分", &StaffValues::社員区分},
    {"アクセス権限", &StaffValues::accessLevel},
};

void takeRights(const database::RecordSet& row) {
    for (std::size_t i = 0; i < classRightColumns.size(); ++i)
        takeColumn(row, classRightColumns[i], staff.classRights[i]);
    for (std::size_t i = 0; i < operationRightColumns.size(); ++i)
        takeColumn(row, operationRightColumns[i], staff.operationRights[i]);
}

} // namespace

bool readStartupStaff() {
    staff.staffCode.clear();
    database::RecordSet records;
    if (openLocalRecordset(records, "SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'"))
        staff.staffCode = records.text("起動担当者コード", "");
    records.close();
    return text::length(text::trim(staff.staffCode)) > 0;
}

void writeStartupStaff() {
    if (text::trim(staff.staffCode).empty()) return;
    if (!executeLocalSqlLogged("UPDATE 動作環境定義 SET "
                               "起動担当者コード = '" +
                               staff.staffCode + "'  WHERE 動作環境定義ID = '001'"))
        return screen::message("データベースに問題が発生し修正できませんでした。");
    loadStaff(staff.staffCode);
}

bool loadStaff(std::string_view code) {
    database::RecordSet records;
    const bool found = openRecordset(
        records, "SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '" + std::string(code) + "'", false);
    if (found) {
        takeColumns(records, staffColumns, staff);
        takeRights(records);
    }
    records.close();
    return found;
}

bool authorizeStartupStaff(std::string_view menu, std::string_view programId, int rightKind) {
    staff.signedIn = false;
    if (!readStartupStaff() || !loadStaff(staff.staffCode)) return false;
    staff.signedIn = checkOperationRight(menu, programId, rightKind);
    return staff.signedIn;
}

} // namespace kestrel
