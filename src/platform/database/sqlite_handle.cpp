#include "platform/database/sqlite_handle.hpp"

#include "platform/database/sqlite_like.hpp"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <sys/vfs.h>
#include <unistd.h>

namespace kestrel::database {

using platform::Failure;
using platform::Result;

namespace {

// Text for a "file:" address: what has a meaning there is written as its number.
std::string asFileAddress(const std::string& path) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string address = "file:";
    for (char c : path) {
        if (c == '?' || c == '#' || c == '%') {
            auto byte = static_cast<unsigned char>(c);
            address += {'%', digits[byte >> 4], digits[byte & 15]};
        } else {
            address += c;
        }
    }
    return address;
}

int readHeader(sqlite3* handle) {
    return runSqlite(handle, "SELECT count(*) FROM sqlite_schema");
}

Failure closeFailed(sqlite3* handle, int code) {
    Failure failure = sqliteFailure(handle, code);
    sqlite3_close(handle);
    return failure;
}

// Opens, and reads the header at once: SQLite itself would notice a file that it can't read only at the first
// statement.
Result<sqlite3*> openAndRead(const std::string& address, int flags, int waiting) {
    sqlite3* handle = nullptr;
    int code = sqlite3_open_v2(address.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code == SQLITE_OK) {
        sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
        sqlite3_busy_timeout(handle, waiting * 1000);
        code = readHeader(handle);
    }
    if (code == SQLITE_OK) code = replaceLike(handle);
    if (code == SQLITE_OK) return handle;
    return closeFailed(handle, code);
}

bool hasContent(const std::string& path) {
    std::error_code error;
    auto size = std::filesystem::file_size(path, error);
    return !error && size > 0;
}

// A file in a folder where nothing can be written has no place for the shared memory of its write-ahead log. When
// nothing waits in a log, the file alone is the whole database, and nobody can change it.
bool readableAlone(const std::string& path, const Failure& failure) {
    bool noPlace = failure.number == SQLITE_CANTOPEN || failure.number == SQLITE_READONLY;
    return noPlace && access(path.c_str(), W_OK) != 0 && !hasContent(path + "-wal");
}

bool inLogMode(sqlite3* handle) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(handle, "PRAGMA journal_mode", -1, &statement, nullptr);
    bool log = sqlite3_step(statement) == SQLITE_ROW &&
               std::string_view(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))) == "wal";
    sqlite3_finalize(statement);
    return log;
}

// Brings the file to the house's mode. Where somebody else is in the way the file stays as it is: its own mode is safe,
// but for a write-ahead log on a share, which isn't.
int settleJournal(sqlite3* handle, const std::string& path, int waiting) {
    runSqlite(handle, "PRAGMA synchronous=FULL");
    std::string_view wanted = houseJournalMode(path);
    if (sqlite3_db_readonly(handle, "main") == 1 || inLogMode(handle) == (wanted == "wal")) return SQLITE_OK;
    sqlite3_busy_timeout(handle, 0);
    int code = runSqlite(handle, wanted == "wal" ? "PRAGMA journal_mode=WAL" : "PRAGMA journal_mode=DELETE");
    sqlite3_busy_timeout(handle, waiting * 1000);
    return wanted == "delete" && inLogMode(handle) ? std::max<int>(code, SQLITE_BUSY) : SQLITE_OK;
}

} // namespace

Failure sqliteFailure(sqlite3* handle, int code) {
    return Failure{code & 0xff, handle ? sqlite3_errmsg(handle) : sqlite3_errstr(code)};
}

int runSqlite(sqlite3* handle, const char* sql) {
    return sqlite3_exec(handle, sql, nullptr, nullptr, nullptr);
}

bool isFileShare(long fileSystemType) {
    static constexpr unsigned long shares[] = {
        0x6969,     // NFS
        0xFF534D42, // CIFS
        0xFE534D42, // SMB2
        0x517B,     // SMB
        0x01021997, // 9P
        0x65735546, // FUSE: sshfs, davfs and their like
        0x5346414F, // AFS
    };
    auto type = static_cast<unsigned long>(fileSystemType) & 0xFFFFFFFFUL;
    return std::find(std::begin(shares), std::end(shares), type) != std::end(shares);
}

const char* houseJournalMode(const std::string& path) {
    struct statfs about {};
    return statfs(path.c_str(), &about) == 0 && isFileShare(static_cast<long>(about.f_type)) ? "delete" : "wal";
}

Result<sqlite3*> openSqliteHandle(const std::string& path, int waiting) {
    std::string address = asFileAddress(std::filesystem::absolute(path).string());
    auto opened = openAndRead(address, SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI, waiting);
    if (!opened && readableAlone(path, opened.failure()))
        opened = openAndRead(address + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, waiting);
    if (!opened) return opened;
    sqlite3* handle = opened.value();
    int code = settleJournal(handle, path, waiting);
    if (code == SQLITE_OK) return handle;
    return closeFailed(handle, code);
}

} // namespace kestrel::database
