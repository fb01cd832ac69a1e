#include "platform/database/file_kind.hpp"

#include <array>
#include <cerrno>
#include <cstddef>
#include <sqlite3.h>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace kestrel::database {

namespace {

using namespace std::string_view_literals;

constexpr auto sqliteHead = "SQLite format 3\0"sv;
constexpr auto accessHead = "\0\1\0\0Standard ACE DB\0"sv;
constexpr auto jetHead = "\0\1\0\0Standard Jet DB\0"sv;

FileKind kindOfHead(std::string_view head) {
    if (head.starts_with(sqliteHead)) return FileKind::sqlite;
    return head.starts_with(accessHead) || head.starts_with(jetHead) ? FileKind::access : FileKind::other;
}

// Opened and closed through the engine: to the kernel every closing of a file ends all locks that the process has on
// it, so a look at a database that this process has open would take its locks away. The engine knows of them and waits.
class Look {
public:
    explicit Look(const std::string& path)
        : vfs(sqlite3_vfs_find(nullptr)), memory(static_cast<std::size_t>(vfs->szOsFile)),
          name(sqlite3_create_filename(path.c_str(), "", "", 0, nullptr)) {
        opened = vfs->xOpen(vfs, name, file(), SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB, nullptr) == SQLITE_OK;
    }
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;
    ~Look() {
        if (file()->pMethods) file()->pMethods->xClose(file());
        sqlite3_free_filename(name);
    }
    bool isOpen() const { return opened; }
    // The first bytes; zeros where the file ends earlier.
    std::array<char, 32> head() {
        std::array<char, 32> bytes{};
        file()->pMethods->xRead(file(), bytes.data(), bytes.size(), 0);
        return bytes;
    }

private:
    sqlite3_file* file() { return reinterpret_cast<sqlite3_file*>(memory.data()); }

    sqlite3_vfs* vfs;
    std::vector<std::max_align_t> memory; // more than the engine's own structure needs
    sqlite3_filename name;
    bool opened = false;
};

} // namespace

FileKind fileKind(const std::string& path) {
    struct stat about {};
    if (stat(path.c_str(), &about) != 0) return errno == EACCES ? FileKind::unreadable : FileKind::missing;
    if (S_ISDIR(about.st_mode)) return FileKind::folder;
    if (!S_ISREG(about.st_mode)) return FileKind::other; // a pipe would keep the reader waiting
    Look look(path);
    if (!look.isOpen()) return FileKind::unreadable;
    const auto head = look.head();
    return kindOfHead(std::string_view(head.data(), head.size()));
}

} // namespace kestrel::database
