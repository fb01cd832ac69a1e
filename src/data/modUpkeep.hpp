// What has aged out of the local database: the run history, the link messages and the clipboard between the programs of
// the suite grow with every run.
#pragma once

#include <string_view>

namespace kestrel {

inline constexpr std::string_view menuProgram = "営業支援"; // the one program of the suite that sweeps

// Deletes the rows that are too old from four local tables. Its caller asks first whether the program is the
// one that sweeps. A table that fails is left as it is; the reason is in the run history.
void sweepLocalTables();

} // namespace kestrel
