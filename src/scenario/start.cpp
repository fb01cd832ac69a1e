#include "scenario/start.hpp"

#include "platform/journal.hpp"
#include "scenario/databases.hpp"
#include "scenario/run.hpp"
#include "screen/ending.hpp"
#include "screen/frontend.hpp"

namespace kestrel::scenario {

void startRun(const Arguments& commandLine) {
    Run& present = run();
    present.historyBefore = historyLines();
    present.runStart = present.actionStart;
    present.started = present.running = true;
    present.focusWindow.clear();
    present.program(commandLine.empty() ? std::string() : commandLine[0]);
    if (!screen::ended()) frontend::waitUntilEnded();
    present.running = false;
    if (!present.over) journal::record(journal::Channel::seen, "ended " + std::to_string(screen::endStatus()));
}

} // namespace kestrel::scenario
