// Trouble on purpose, for tests: statements that fail, databases that can't be opened, a shorter wait for a busy one.
#pragma once

#include "platform/database/connection.hpp"

#include <string>

namespace kestrel::database {

// From now on each statement on that connection that contains the text, as the program sends it, fails with the
// description "broken on purpose"; several add up. The run history's own INSERT is spared unless the text names
// プログラム稼動履歴.
void breakStatements(Role role, std::string containing);
void breakOpening(Role role);
void mendAll();
void limitWaiting(int seconds); // overrides Settings::connectionTimeout; 0 ends it

} // namespace kestrel::database
