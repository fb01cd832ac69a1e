// Files and folders. Paths are UTF-8 and may hold either separator. A failure's number is the errno.
#pragma once

#include "platform/result.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::platform {

bool fileExists(std::string_view path);   // anything that is there and is no folder
bool folderExists(std::string_view path); // follows links

// Copies the content, follows links, overwrites, keeps the modification time; the copy is writable by its owner even
// when the source is read-only. A half-made copy is removed.
Status copyFile(std::string_view source, std::string_view target);
Status makeFolder(std::string_view path); // one level; that it is there already is no failure
Status removeFile(std::string_view path);

} // namespace kestrel::platform
