// Starting the program under test, and noting how it comes to its end.
#pragma once

#include "scenario/line.hpp"

namespace kestrel::scenario {

void startRun(const Arguments& commandLine); // returns when the process has ended or nothing more is read

} // namespace kestrel::scenario
