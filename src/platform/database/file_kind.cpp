#include "platform/database/file_kind.hpp"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

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

} // namespace

FileKind fileKind(const std::string& path) {
    struct stat about {};
    if (stat(path.c_str(), &about) != 0) return errno == EACCES ? FileKind::unreadable : FileKind::missing;
    if (S_ISDIR(about.st_mode)) return FileKind::folder;
    if (!S_ISREG(about.st_mode)) return FileKind::other; // a pipe would keep the reader waiting
    int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return FileKind::unreadable;
    std::array<char, 32> head{};
    auto length = read(file, head.data(), head.size());
    close(file);
    return kindOfHead(std::string_view(head.data(), length < 0 ? 0 : static_cast<std::size_t>(length)));
}

} // namespace kestrel::database
