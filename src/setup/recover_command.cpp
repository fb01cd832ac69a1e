#include "setup/recover_command.hpp"

namespace kestrel::setup {

int showRecovery(const Recovery& recovery, std::ostream& out, std::ostream& complaints) {
    for (const std::string& line : recovery.lines) out << line << std::endl;
    for (const std::string& line : recovery.troubles) complaints << line << std::endl;
    if (recovery.lines.empty() && recovery.troubles.empty()) out << "nothing to recover" << std::endl;
    if (!recovery.troubles.empty()) return 1;
    return recovery.left ? 2 : 0;
}

} // namespace kestrel::setup
