// What differs from server to server, one row for each family: how it calls itself, what a session begins with, how a
// draw keeps others away.
#pragma once

#include "platform/database/dialect.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::database {

struct ServerWords {
    Dialect dialect;
    std::vector<std::string_view> names; // as its driver names it; the beginning decides, letter case ignored
    // Sent when a session begins. {waiting} is the time to wait for a row that another holds, {running} the time that a
    // statement may take, both in milliseconds; {seconds} the former in seconds.
    std::vector<std::string_view> session;
    // Asked when a session begins: table and column of each column that can't be null. Empty: nobody needs to know.
    std::string_view requiredColumns;
    // Sent at the beginning of a draw: from here to its end no other draw runs. An answer of 0 is a refusal; each waits
    // no longer than told to.
    std::vector<std::string_view> draw;
    std::string_view afterDraw; // and behind it, where the end of the transaction doesn't let go by itself
    // The driver's own attribute that makes it read by a cursor on the server instead of taking a whole result; 0: it
    // reads row by row anyway.
    int cursorAttribute = 0;
    bool readsInBlocks = true;     // its driver keeps its place when the rest of a long text of a block is asked for
    bool limitsStatements = false; // the session's words say how long a statement may run; else the driver is told
    std::string_view bound = "";   // with that attribute: what bounds a read, written behind it in front of a number
};

// The row of the server that calls itself so; for an unknown name one with the family closest to the standard and no
// words.
const ServerWords& serverWords(std::string_view dbmsName);

std::string filledWords(std::string_view words, int waitingSeconds, int runningSeconds);

} // namespace kestrel::database
