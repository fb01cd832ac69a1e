#include "data/modUpkeep.hpp"

#include "data/modGateway.hpp"
#include "platform/clock.hpp"

#include <string>

namespace kestrel {

namespace {

struct Swept {
    const char* table;
    const char* timeColumn;
    int months, days; // how long a row is kept
};
constexpr Swept sweptTables[] = {
    {"プログラム稼動履歴", "実行日付", 6, 0},
    {"プログラム連携情報", "発信日時", 0, 3},
    {"プログラムクリップボード", "貼付日時", 0, 3},
    {"プログラムクリップボード明細", "貼付日時", 0, 3},
};

// Rows up to the limit, which is counted from the present moment each time.
std::string agedRows(const Swept& swept) {
    const platform::Moment limit =
        platform::daysLater(platform::monthsLater(platform::now(), -swept.months), -swept.days);
    return std::string(" FROM ") + swept.table + " WHERE " + swept.timeColumn + " <= '" + platform::stampText(limit) +
           "'";
}

bool hasAgedRows(const Swept& swept) {
    database::RecordSet records;
    const bool found = openLocalRecordset(records, "SELECT *" + agedRows(swept));
    records.close();
    return found;
}

} // namespace

void sweepLocalTables() {
    for (const Swept& swept : sweptTables)
        if (hasAgedRows(swept)) executeLocalSql("DELETE" + agedRows(swept));
}

} // namespace kestrel
