// The statements of the load once more, sent by PostgreSQL's own load program: what the server and this machine could
// do with them at most.
#pragma once

#include "load_plan.hpp"

namespace kestrel::bench {

// One client for each report, in a process of its own, all of them let go at the same moment, by the simple protocol,
// on a database as the load found it. Answers the seconds until the last one is through. Ends the process when it can't
// be run.
double runPgbench(const std::vector<OperatorReport>& reports, const std::filesystem::path& folder,
                  const std::string& connectionText);

} // namespace kestrel::bench
