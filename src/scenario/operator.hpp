// The operator: plays the scenario files named on its command line.
#pragma once

#include "scenario/run.hpp"

#include <string>
#include <vector>

namespace kestrel::scenario {

// Arguments without the program's own name; the exit status: 0 every expectation held, 1 one did not, 2 a scenario or
// the command line is wrong.
int runOperator(const std::vector<std::string>& arguments, Program program);

} // namespace kestrel::scenario
