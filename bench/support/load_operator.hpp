// One operator of the load: the real program with a hand in place of a person, in a process of its own.
#pragma once

#include "line_up.hpp"
#include "load_plan.hpp"

namespace kestrel::bench {

// Works on the installation in its folder and leaves its report there. The first addressee of all is one of the shared
// roster, typed before the start, so that everybody saves it under the same number. Ends the process when the program
// stands still.
void workAsOperator(const std::filesystem::path& load, int itsOperator, const LoadPlan& plan, const LineUp& line);

} // namespace kestrel::bench
