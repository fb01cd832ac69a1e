// What "kestrel-setup recover" tells a person.
#pragma once

#include "setup/recover.hpp"

#include <ostream>

namespace kestrel::setup {

// Rows go to out, troubles to complaints. Answers the exit status: 0 nothing waits, or all of it was put back; 1
// trouble; 2 something waits.
int showRecovery(const Recovery& recovery, std::ostream& out, std::ostream& complaints);

} // namespace kestrel::setup
