// Starting other programs.
#pragma once

#include "platform/result.hpp"

#include <string>
#include <string_view>

namespace kestrel::platform {

// Starts the program file with one argument (none when empty), directly, without a shell; does not wait for it and
// leaves no zombie. That it could not be started (missing, not executable) is known at once.
Status startProgram(std::string_view file, std::string_view argument);

// The value of an environment variable, or empty. setEnvironment is for tests.
std::string environment(std::string_view name);
void setEnvironment(std::string_view name, std::string_view value);

} // namespace kestrel::platform
