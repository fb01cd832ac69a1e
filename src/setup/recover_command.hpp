// "kestrel-setup recover" as a person calls it.
#pragma once

#include <string>
#include <vector>

namespace kestrel::setup {

// words: DIR [--apply]; anything else shows the usage. Rows go to the standard output, troubles to the standard error.
// The exit status: 0 nothing waits, or all of it was put back; 1 trouble; 2 something waits.
int runRecover(const std::vector<std::string>& words, const char* usage);

} // namespace kestrel::setup
