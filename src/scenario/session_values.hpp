// Session values and fields of rosterSession by their names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::scenario {

// A flag reads "yes" or "no", a reference the name of its control or window, an empty one "NULL".
std::string readSessionValue(std::string_view name); // an unknown name raises ScenarioError
void writeSessionValue(std::string_view name, std::string_view text);
std::vector<std::string> sessionValueNames(); // in the order of the records

} // namespace kestrel::scenario
