#include "company/modStaffSearch.hpp"

#include "company/pinCodec.hpp"
#include "company/staffColumns.hpp"
#include "data/modGateway.hpp"
#include "platform/clock.hpp"
#include "session/sessionValues.hpp"
#include "text/numbers.hpp"
#include "values/modValues.hpp"

namespace kestrel {

static std::string eligibleClauses() {
    return " AND (M担当者.在籍区分 = '0'"
           " OR (M担当者.在籍区分 = '1' AND M担当者.退社日付 <>'' AND M担当者.退社日付 > '" +
           platform::dateText(platform::now()) + "'))" + " AND (M担当者.事業所コード = '" + installation.sessionOffice +
           "' OR M担当者.事業所コード = '" + zeroString(3) + "')";
}

static bool openStaff(database::RecordSet& records, std::string_view column, std::string_view value) {
    return openRecordset(records,
                         "SELECT M担当者.* FROM M担当者 WHERE M担当者." + std::string(column) + " = '" +
                             std::string(value) + "'" + eligibleClauses(),
                         false);
}

static void takeCodeAndName(const database::RecordSet& records, FoundStaff& found) {
    found.code = records.text("コード", "");
    found.name = records.text("氏名", "");
}

bool findStaffByLogin(std::string_view loginName, FoundStaff& found) {
    database::RecordSet records;
    const bool exists = openStaff(records, "ログインID", loginName);
    if (exists) takeCodeAndName(records, found);
    records.close();
    return exists;
}

static void takeRights(const database::RecordSet& records) {
    for (std::size_t i = 0; i < classRightColumns.size(); ++i)
        staff.classRights[i] = records.text(classRightColumns[i], "0");
    for (std::size_t i = 0; i < operationRightColumns.size(); ++i)
        staff.operationRights[i] = records.text(operationRightColumns[i], "");
}

bool findStaffByCode(std::string_view code, FoundStaff& found) {
    database::RecordSet records;
    const bool exists = openStaff(records, "コード", code);
    if (exists) {
        takeCodeAndName(records, found);
        const auto stored = records.textOrNull("暗証番号");
        found.pin = stored ? decode(*stored) : "";
        staff.ログインID = records.text("ログインID", "");
        staff.accessLevel = text::leadingShort(records.text("アクセス権限", ""));
        takeRights(records);
    }
    records.close();
    return exists;
}

} // namespace kestrel
