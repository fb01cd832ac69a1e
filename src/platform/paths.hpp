// Cutting and joining paths. Both "/" and "\" separate in every text that is cut or joined as a path; the program joins
// with "/". A "\" inside a stored path becomes "/" only when it reaches the file system (systemPath).
#pragma once

#include <string>
#include <string_view>

namespace kestrel::platform {

// Position (bytes) of the last separator, npos when there is none.
std::size_t lastSeparator(std::string_view path);
std::string joinPath(std::string_view folder, std::string_view name); // folder + "/" + name, as they stand
std::string systemPath(std::string_view path);                        // every "\" as "/"

std::string absolutePath(std::string_view path); // seen from the folder the process stands in
std::string executableFolder();                  // folder of the running executable, no closing separator
// For tests: where the executable is said to lie; empty brings back the real place.
void setExecutableFolder(std::string folder);

} // namespace kestrel::platform
