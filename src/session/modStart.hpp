// The spine: start-up in its exact order, the exit decision, shutdown.
#pragma once

#include <string>

namespace kestrel {

// The whole start of a process: resets everything but who the program is (installation.programId), opens, shows the
// entry form and gives the first focus. The caller then waits in frontend::waitUntilEnded(). When the start fails the
// process has ended (screen::ended()) on return: with status 0 after a refusal, 1 after an error that nobody caught.
void startProgram(const std::string& commandLine);

bool openProgram();     // false: the databases can't be used; nothing is raised
bool loadStartValues(); // the company profile, today's date; true when the profile could be read
void closeProgram();    // end lines, connections closed; harmless after a failed openProgram()
void loadLinkedEntry(); // the handed-down record; a roster that isn't there gives a new entry
void newEntryScreen();  // an empty new entry that keeps the roster date
void requestExit();     // the single exit decision: asks, and ends the process unless it is refused

} // namespace kestrel
