// The companion report program works through files of an office suite's database program. For those to open without a
// question, the person's registry is prepared here. Also here: the small wrappers of the desktop that screens use.
#pragma once

#include <string>

namespace kestrel {

// Prepares the registry for the files in installation.localReportFolder: which program opens "mdb" files, and, by the
// version found, its macro level or the folder as a trusted place. False: the suite isn't installed, or in a version
// that nobody knows, or a key can't be opened. What can't be written shows one box, and the rest goes on.
bool registerAccessFolder();

// The folder picked, the start folder when the person cancels.
std::string browseForFolder(const std::string& prompt, const std::string& startFolder);

void openManual(); // the program's own, from the manual folder

} // namespace kestrel
