// What the operators told, held against the databases afterwards.
#pragma once

#include "load_plan.hpp"
#include "server.hpp"

namespace kestrel::bench {

struct Proof {
    std::size_t saved = 0, failed = 0, drawn = 0;
    std::vector<std::string> wrong; // what doesn't hold, a line each
};

// Every save that was told as one is there once, with what was typed, and no row beside them; no number was drawn twice
// and none is missing; each save that failed left one line with its whole statement in the run history of its operator.
Proof proveLoad(Libpq& server, const std::filesystem::path& load, const std::vector<OperatorReport>& reports);

} // namespace kestrel::bench
