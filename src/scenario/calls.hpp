// Calling one of the program's own operations on texts.
#pragma once

#include "scenario/line.hpp"

#include <string>

namespace kestrel::scenario {

// The name and its arguments; the result as a text, several results with " | " between. An unknown name or a wrong
// number of arguments raises ScenarioError.
std::string resultOf(const Arguments& call);

void callOperation(const Arguments& call); // writes the result

} // namespace kestrel::scenario
