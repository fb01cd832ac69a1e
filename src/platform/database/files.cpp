#include "platform/database/files.hpp"

#include "platform/database/file_kind.hpp"
#include "platform/database/sqlite_handle.hpp"
#include "platform/paths.hpp"

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <thread>
#include <unistd.h>

namespace kestrel::database {

using platform::done;
using platform::Failure;
using platform::Result;
using platform::Status;
using platform::systemPath;

namespace {

constexpr int copyWaiting = 60; // seconds for a busy source or target

struct Handle {
    sqlite3* raw = nullptr;
    explicit Handle(sqlite3* opened) : raw(opened) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { sqlite3_close(raw); }
};

Failure failureOfFile(const std::string& path, int number) {
    return Failure{number, std::strerror(number) + (": " + path)};
}

// Makes the file, empty, only when there is none.
Status claimFile(const std::string& path) {
    int file = ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
    if (file < 0) return failureOfFile(path, errno);
    ::close(file);
    return done();
}

// An empty file becomes a database with a header only when something is written.
Status writeHeader(const std::string& path) {
    auto opened = openSqliteHandle(path, copyWaiting);
    if (!opened) return opened.failure();
    Handle handle(opened.value());
    int code = runSqlite(handle.raw, "BEGIN IMMEDIATE; PRAGMA user_version=1; PRAGMA user_version=0; COMMIT");
    return code == SQLITE_OK ? done() : Status(sqliteFailure(handle.raw, code));
}

Status backUp(sqlite3* source, sqlite3* target) {
    sqlite3_backup* backup = sqlite3_backup_init(target, "main", source, "main");
    if (!backup) return sqliteFailure(target, sqlite3_errcode(target));
    int code = sqlite3_backup_step(backup, -1);
    int finished = sqlite3_backup_finish(backup);
    if (code == SQLITE_DONE && finished == SQLITE_OK) return done();
    return Failure{code & 0xff, sqlite3_errstr(code)};
}

Status backUpInto(sqlite3* source, const std::string& target) {
    auto opened = openSqliteHandle(target, copyWaiting);
    if (!opened) return opened.failure();
    Handle handle(opened.value());
    return backUp(source, handle.raw);
}

void removeDatabase(const std::string& path) {
    for (const char* end : {"", "-wal", "-shm", "-journal"}) std::remove((path + end).c_str());
}

// Beside the target, then in its place: nobody sees a half-made database.
Status backUpAsNew(sqlite3* source, const std::string& target) {
    std::string part = target + ".part" + std::to_string(getpid());
    if (auto claimed = claimFile(part); !claimed) return claimed;
    Status copied = backUpInto(source, part);
    if (copied && std::rename(part.c_str(), target.c_str()) != 0) copied = failureOfFile(target, errno);
    if (!copied) removeDatabase(part);
    return copied;
}

bool isExclusive(sqlite3* handle) {
    return runSqlite(handle, "PRAGMA locking_mode=EXCLUSIVE") == SQLITE_OK &&
           runSqlite(handle, "BEGIN EXCLUSIVE; PRAGMA user_version") == SQLITE_OK;
}

// Alone if nobody else has it open, else at least as the only writer.
Result<sqlite3*> openHeld(const std::string& path) {
    sqlite3* handle = nullptr;
    int code = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_FULLMUTEX, nullptr);
    if (code == SQLITE_OK && isExclusive(handle)) return handle;
    sqlite3_close(handle);
    code = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_FULLMUTEX, nullptr);
    if (code == SQLITE_OK) code = runSqlite(handle, "BEGIN IMMEDIATE");
    if (code == SQLITE_OK) return handle;
    Failure failure = sqliteFailure(handle, code);
    sqlite3_close(handle);
    return failure;
}

} // namespace

Status createDatabase(std::string_view path) {
    std::string file = systemPath(path);
    if (auto claimed = claimFile(file); !claimed) return claimed;
    Status written = writeHeader(file);
    if (!written) removeDatabase(file);
    return written;
}

Status copyDatabase(std::string_view source, std::string_view target) {
    std::string from = systemPath(source), to = systemPath(target);
    if (fileKind(from) != FileKind::sqlite) return Failure{SQLITE_NOTADB, from + " is not a database file"};
    auto opened = openSqliteHandle(from, copyWaiting);
    if (!opened) return opened.failure();
    Handle handle(opened.value());
    return fileKind(to) == FileKind::sqlite ? backUpInto(handle.raw, to) : backUpAsNew(handle.raw, to);
}

// The thread does nothing but give the database back in time while the program waits for it.
struct HeldDatabase {
    Handle handle;
    std::mutex guard;
    std::condition_variable released;
    bool over = false;
    std::thread timer;

    HeldDatabase(sqlite3* opened, double seconds)
        : handle(opened), timer([this, seconds] { giveBackAfter(seconds); }) {}
    ~HeldDatabase() {
        {
            std::lock_guard lock(guard);
            over = true;
        }
        released.notify_all();
        timer.join();
    }
    void giveBackAfter(double seconds) {
        std::unique_lock lock(guard);
        released.wait_for(lock, std::chrono::duration<double>(seconds), [this] { return over; });
        sqlite3_close(std::exchange(handle.raw, nullptr));
    }
};

Hold::Hold(std::unique_ptr<HeldDatabase> database) : held(std::move(database)) {}
Hold::Hold(Hold&& other) noexcept = default;
Hold& Hold::operator=(Hold&& other) noexcept = default;
Hold::~Hold() = default;

void Hold::release() {
    held.reset();
}

Result<Hold> holdExclusively(std::string_view path, double seconds) {
    auto opened = openHeld(systemPath(path));
    if (!opened) return opened.failure();
    return Hold(std::make_unique<HeldDatabase>(opened.value(), seconds));
}

} // namespace kestrel::database
