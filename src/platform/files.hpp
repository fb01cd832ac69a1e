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

Result<std::string> contentOf(std::string_view path); // bytes, as they stand

// A small file that a process keeps hold of. Whoever else looks at it can tell whether a living process does: the
// kernel lets go of it with the process, however that ended.
class HeldFile {
public:
    HeldFile() = default; // holds nothing
    HeldFile(std::string path, int file) : place(std::move(path)), number(file) {}
    HeldFile(HeldFile&& other) noexcept;
    HeldFile& operator=(HeldFile&& other) noexcept;
    ~HeldFile();   // lets go; the file stays
    void remove(); // takes the file away and lets go; harmless when nothing is held

private:
    std::string place;
    int number = -1;
};

// Makes a file of that content, held from before anybody could take it for left behind. When this answers, content and
// name are on the disk. Fails with EEXIST where there is such a file; of one that fails nothing stays.
Result<HeldFile> writeHeldFile(std::string_view path, std::string_view content);
// Takes hold of a file that is there. Fails with EWOULDBLOCK while a living process holds it.
Result<HeldFile> holdFile(std::string_view path);

} // namespace kestrel::platform
