// Files and folders as the rest of the program sees them. A false result is silent.
#pragma once

#include <string>
#include <string_view>

namespace kestrel {

bool fileExists(std::string_view path);
bool folderExists(std::string_view path);
bool copyFile(std::string_view source, std::string_view target);   // overwrites
bool copyFolder(std::string_view source, std::string_view target); // overwrites, with all that is in it
bool deleteFolder(std::string_view path);                          // read-only content too

// Creates every folder above the last separator (the last part is taken for a file). "//server/share/…" is the network
// form, "/…" or "D:\…" the drive form; a path of neither form is passed over. A folder that can't be made shows one
// message, and the next one is tried.
void makeFolderPath(std::string_view path);
bool isNetworkPath(std::string_view path); // it holds the mark of a network path

// The name without folder and without the last "." and what follows; a folder's name whole. Empty for an empty path and
// for what the trimmed path doesn't name; raises when there is nothing at the path.
std::string fileBaseName(std::string_view path);

// What stands behind the last separator of either kind; the whole path without one.
std::string_view nameInFolder(std::string_view path);

// Asks the desktop to open a document of any kind, or an address. Above 32: it does.
int openWithShell(std::string_view path);

} // namespace kestrel
