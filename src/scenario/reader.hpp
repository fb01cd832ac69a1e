// Playing a scenario, line by line. The reader is re-entrant: an act that makes the program wait for a person again (a
// box, a dialog, a modal window) holds its own line open while that wait plays the lines that follow.
#pragma once

#include "scenario/run.hpp"

#include <string_view>

namespace kestrel::scenario {

// Plays all lines of the present run(): its file, places, kind and program stand there already.
void playScenario(std::string_view text);

} // namespace kestrel::scenario
