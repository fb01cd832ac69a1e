// The one scenario file that is being played: where it stands, and what its looks go by.
#pragma once

#include "scenario/line.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kestrel::scenario {

// The program under test: starts with a command line as a process would, and returns when its first window waits for a
// person or the process has ended.
using Program = void (*)(const std::string& commandLine);

struct Run {
    std::string file;
    std::vector<std::string> lines;
    std::size_t nextLine = 0;
    int lineNumber = 0; // of the line being played, from 1
    Places places;
    std::string kind = "A"; // database kind of the installation
    std::string mainText;   // connection text of its main database
    bool onServer = false;  // which was put on a server
    Program program = nullptr;
    bool headOver = false; // a line has been played that is neither "sample", "kinds" nor "engine"

    bool over = false;    // nothing more is read: at the end, passed over or wrong
    bool started = false; // the program was started at least once
    bool running = false; // it was, and has not come to its end
    bool wrong = false;   // the scenario itself is wrong
    bool passedOver = false;
    int expected = 0, failed = 0;

    std::size_t runStart = 0;               // journal entries from here on belong to the present run of the program
    std::size_t actionStart = 0;            // and from here on to the last action
    std::size_t searchFrom = 0;             // behind what the last expectation about lines or statements found
    std::string focusWindow, focusControl;  // where the focus rested when it was last noted
    std::vector<std::string> historyBefore; // what the run history held when the program started
};

Run& run(); // the present one

void beginAction();                   // "since the last action" begins here
void refuse(const std::string& name); // writes that a click could not be

} // namespace kestrel::scenario
