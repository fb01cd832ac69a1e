// Who runs the program, and where.
#pragma once

#include <string>

namespace kestrel::platform {

std::string userName();     // password database, then LOGNAME, USER, the user's number; never empty
std::string computerName(); // host name
int processNumber();        // of this process, no other living one of the computer has it
// Class of the old desktop versions whose window frames differ; -1 on this platform (no such version).
int windowsVersionClass();

// For tests: the given text is answered from now on; an empty one brings back the system's answer.
void setUserName(std::string name);
void setComputerName(std::string name);

} // namespace kestrel::platform
