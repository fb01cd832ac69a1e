// Files and folders. Paths are UTF-8 and may hold either separator. A failure's number is the errno.
#pragma once

#include "platform/clock.hpp"
#include "platform/result.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::platform {

bool fileExists(std::string_view path);   // anything that is there and is no folder
bool folderExists(std::string_view path); // follows links

struct Entry {
    bool folder = false;
    std::uint64_t size = 0; // bytes
    Moment modified;
};
Result<Entry> entryAt(std::string_view path); // one look at the disk, follows links

// Copies the content of an ordinary file (nothing else: a pipe would never end), follows links, overwrites, keeps the
// modification time; the copy is writable by its owner even when the source is read-only. A half-made copy is removed.
Status copyFile(std::string_view source, std::string_view target);
Status makeFolder(std::string_view path); // one level; that it is there already is no failure
Status removeFile(std::string_view path);

// Everything in the folder that is no folder itself, by name only, in no order.
Result<std::vector<std::string>> filesIn(std::string_view folder);

// The folder with all that is in it, as copyFile would copy each file, into a folder that may be there already; folders
// keep their times too. Refused before the first byte when the target lies within the source. A half-made copy is
// removed when there was no such folder before.
Status copyFolder(std::string_view source, std::string_view target);
// With all that is in it, read-only or not. A link goes, never what it points to.
Status removeFolder(std::string_view path);

} // namespace kestrel::platform
