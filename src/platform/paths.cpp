#include "platform/paths.hpp"

#include <algorithm>
#include <filesystem>

namespace kestrel::platform {

namespace {

std::string& pretendedFolder() {
    static std::string folder;
    return folder;
}

} // namespace

std::size_t lastSeparator(std::string_view path) {
    for (std::size_t at = path.size(); at > 0; --at)
        if (path[at - 1] == '/' || path[at - 1] == '\\') return at - 1;
    return std::string_view::npos;
}

std::string joinPath(std::string_view folder, std::string_view name) {
    return std::string(folder).append("/").append(name);
}

std::string systemPath(std::string_view path) {
    std::string system(path);
    std::ranges::replace(system, '\\', '/');
    return system;
}

std::string absolutePath(std::string_view path) {
    return std::filesystem::absolute(systemPath(path)).string();
}

std::string executableFolder() {
    if (!pretendedFolder().empty()) return pretendedFolder();
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

void setExecutableFolder(std::string folder) {
    pretendedFolder() = std::move(folder);
}

} // namespace kestrel::platform
