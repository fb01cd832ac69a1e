// The spine: start-up in its exact order, the exit decision, shutdown.
#pragma once

#include <string>

namespace kestrel {

// The whole start of a process: resets everything, opens, shows the entry form and gives the first focus. The caller
// then waits in frontend::waitUntilEnded(). When the start fails the process has ended (screen::ended()) on return.
void startProgram(const std::string& commandLine);
bool openProgram();
bool loadStartValues(); // the company profile, today's date; true when the profile could be read
void closeProgram();
void loadLinkedEntry();
void newEntryScreen();
void requestExit(); // the single exit decision

} // namespace kestrel
