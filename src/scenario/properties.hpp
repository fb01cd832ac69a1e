// The properties of controls and windows by the names that a scenario calls them.
#pragma once

#include "screen/window.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::scenario {

// Raise ScenarioError for a name that is none, or none of that kind of control.
std::string readProperty(const screen::Control& control, std::string_view property);
std::string readProperty(const screen::Window& window, std::string_view property);

std::vector<std::string_view> controlPropertyNames();

// "enabled", "visible", "tabstop" and "maxlength" can be set from a scenario.
void writeProperty(screen::Control& control, std::string_view property, std::string_view value);

std::string yesNo(bool flag);

} // namespace kestrel::scenario
