// The tables by which a line finds its function. A name of several words ("file make") wins over its first word alone.
#pragma once

#include "scenario/line.hpp"

#include <span>
#include <string>
#include <string_view>

namespace kestrel::scenario {

// When a verb may be played.
enum Rule : unsigned {
    anytime = 0,
    beforeStart = 1,  // while the program is not running
    whileRunning = 2, // only then
    atRest = 4,       // not while a box or dialog waits
    action = 8,       // "since the last action" begins with it
};

struct Verb {
    std::string_view name;
    std::string_view shape; // of its arguments, see splitArguments
    unsigned rules;
    void (*play)(const Arguments&);
};

// What an expectation found: whether it holds, and what was there instead of what it expected.
struct Finding {
    bool holds = false;
    std::string there;
};

struct Expectation {
    std::string_view name;
    std::string_view shape;
    Finding (*look)(const Arguments&);
};

// One table for each kind of verb; all verbs are the rows of these.
std::span<const Verb> worldVerbs();
std::span<const Verb> fileVerbs();
std::span<const Verb> registryVerbs();
std::span<const Verb> databaseVerbs();
std::span<const Verb> actVerbs();
std::span<const Verb> lookVerbs();

std::span<const Expectation> screenExpectations();
std::span<const Expectation> journalExpectations();
std::span<const Expectation> worldExpectations();

// The row whose name stands at the front of rest, the longest one; rest then begins with its arguments. Null, and rest
// untouched, when there is none.
template <class Row> const Row* cutRow(std::span<const std::span<const Row>> tables, std::string_view& rest) {
    const Row* best = nullptr;
    std::string_view behind = rest;
    for (std::span<const Row> table : tables)
        for (const Row& row : table) {
            std::string_view left = rest;
            if ((best && row.name.size() <= best->name.size()) || !cutName(left, row.name)) continue;
            best = &row;
            behind = left;
        }
    rest = behind;
    return best;
}

} // namespace kestrel::scenario
