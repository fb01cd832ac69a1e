#include "company/modStaff.hpp"

#include "data/modGateway.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"

namespace kestrel {

bool readStartupStaff() {
    staff.staffCode.clear();
    database::RecordSet records;
    if (openLocalRecordset(records, "SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'"))
        staff.staffCode = records.text("起動担当者コード", "");
    records.close();
    return text::length(text::trim(staff.staffCode)) > 0;
}

} // namespace kestrel
