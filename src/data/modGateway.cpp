#include "data/modGateway.hpp"

#include "data/modHistory.hpp"
#include "screen/ending.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"

namespace kestrel {

namespace {

// The new result goes into the slot whether it succeeded or not; a failed one is never open, so that closing it is
// harmless.
platform::Status openInto(database::RecordSet& slot, database::Connection& connection, std::string_view sql) {
    slot = {};
    auto opened = connection.open(sql);
    if (!opened) return opened.failure();
    slot = std::move(opened.value());
    return platform::done();
}

bool hasRow(const database::RecordSet& slot) {
    return !slot.eof() && !slot.bof();
}

bool reportMain(const platform::Status& status, std::string_view sql) {
    writeErrorHistory(status.failure().description + std::string(sql));
    return false;
}

// A failing statement about the run history would report itself for ever.
bool reportLocal(const platform::Status& status, std::string_view sql) {
    if (text::contains(sql, "プログラム稼動履歴")) return false;
    return reportMain(status, sql);
}

} // namespace

bool openRecordset(database::RecordSet& slot, std::string_view sql, bool logFlag) {
    if (screen::ended()) return false;
    const auto status = openInto(slot, connections.mainConnection, sql);
    if (!status) return reportMain(status, sql);
    const bool found = hasRow(slot);
    if (logFlag) writeQueryHistory(sql);
    return found;
}

bool executeSql(std::string_view sql, bool logFlag) {
    if (screen::ended()) return false;
    const auto status = connections.mainConnection.execute(sql);
    if (!status) return reportMain(status, sql);
    if (logFlag) writeQueryHistory(sql);
    return true;
}

bool openLocalRecordset(database::RecordSet& slot, std::string_view sql) {
    if (screen::ended()) return false;
    const auto status = openInto(slot, connections.localConnection, sql);
    if (!status) return reportLocal(status, sql);
    return hasRow(slot);
}

bool executeLocalSql(std::string_view sql) {
    if (screen::ended()) return false;
    const auto status = connections.localConnection.execute(sql);
    return status ? true : reportLocal(status, sql);
}

bool executeLocalSqlLogged(std::string_view sql) {
    if (!executeLocalSql(sql)) return false;
    writeQueryHistory(sql);
    return true;
}

} // namespace kestrel
