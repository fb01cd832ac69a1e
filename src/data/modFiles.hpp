// Files and folders as the rest of the program sees them. A false result is silent.
#pragma once

#include <string_view>

namespace kestrel {

bool fileExists(std::string_view path);
bool folderExists(std::string_view path);
bool copyFile(std::string_view source, std::string_view target); // overwrites
// Creates every folder above the last separator (the last part is taken for a file). "//server/share/…" is the network
// form, "/…" or "D:\…" the drive form; a path of neither form is passed over. A folder that can't be made shows one
// message, and the next one is tried.
void makeFolderPath(std::string_view path);

} // namespace kestrel
