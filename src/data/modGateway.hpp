// The five operations through which every statement of the program runs. The caller builds the whole text; the gateway
// runs it, tells found or not found, and routes every failure to the run history, never to the screen. There is no
// binding, no prepared statement, no transaction. After the end of the process they do nothing and answer false.
#pragma once

#include "platform/database/record_set.hpp"

#include <string_view>

namespace kestrel {

// On the main database. True: at least one row; false: none, or the statement failed. What the slot held is released.
// With logFlag a line goes into the run history after the statement has succeeded, whether or not rows were found.
bool openRecordset(database::RecordSet& slot, std::string_view sql, bool logFlag);
bool executeSql(std::string_view sql, bool logFlag); // true: done

// On the local database; without a history line, except the last one, which always writes one.
bool openLocalRecordset(database::RecordSet& slot, std::string_view sql);
bool executeLocalSql(std::string_view sql);
bool executeLocalSqlLogged(std::string_view sql);

} // namespace kestrel
