// What a file is, by its content.
#pragma once

#include <string>

namespace kestrel::database {

enum class FileKind { missing, folder, unreadable, sqlite, access, other };

FileKind fileKind(const std::string& path); // an empty file is other

} // namespace kestrel::database
