// Which programs have a file open.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::platform {

struct FileHolder {
    int process = 0;     // its number
    std::string program; // the name of its file, or the first word it was started with; may be empty
};

// The processes of this machine that have the file open, without this one, by number. Those of other users are only
// seen by who may look into them.
std::vector<FileHolder> holdersOf(std::string_view path);

} // namespace kestrel::platform
