// The statements of the load once more, sent by PostgreSQL's own load program: what the server and this machine could
// do with them at most.
#pragma once

#include "load_plan.hpp"

namespace kestrel::bench {

struct PgbenchRun {
    double seconds = 0;   // from the first statement to the last
    double processor = 0; // of pgbench, microseconds; reading its script is in it
};

// One client for each report, all of them at once, by the simple protocol, on a database as the load found it. Ends the
// process when it can't be run.
PgbenchRun runPgbench(const std::vector<OperatorReport>& reports, const std::filesystem::path& folder,
                      const std::string& connectionText);

} // namespace kestrel::bench
