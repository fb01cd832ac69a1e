// The end of the process is a flag that model and gateway honour: from then on modal waits return at once, handlers run
// out without touching a control or a database, however deep they were.
#pragma once

namespace kestrel::screen {

bool ended();
int endStatus();
void endProcess(int status); // the first call counts

} // namespace kestrel::screen
