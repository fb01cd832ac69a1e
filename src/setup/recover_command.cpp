#include "setup/recover_command.hpp"

#include "setup/arguments.hpp"
#include "setup/recover.hpp"

#include <iostream>

namespace kestrel::setup {

namespace {

int statusOf(const Recovery& recovery) {
    if (!recovery.troubles.empty()) return 1;
    return recovery.left ? 2 : 0;
}

void show(const Recovery& recovery) {
    for (const std::string& line : recovery.lines) std::cout << line << "\n";
    for (const std::string& line : recovery.troubles) std::cerr << line << "\n";
    if (recovery.lines.empty() && recovery.troubles.empty()) std::cout << "nothing to recover\n";
}

} // namespace

int runRecover(const std::vector<std::string>& words, const char* usage) {
    const auto request = readRecoverRequest(words);
    if (!request) {
        std::cerr << usage << "\n";
        return 1;
    }
    const Recovery recovery = recover(request->folder, request->apply);
    show(recovery);
    return statusOf(recovery);
}

} // namespace kestrel::setup
