// Starting other programs. While the journal runs, a start that succeeds is recorded as seen: started "FILE ARGUMENT".
#pragma once

#include "platform/pretend.hpp"
#include "platform/result.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::platform {

// Starts the program file with one argument (none when empty), directly, without a shell; does not wait for it and
// leaves no zombie. That it could not be started (missing, not executable) is known at once. A failure's number is the
// errno.
Status startProgram(std::string_view file, std::string_view argument);
void pretendPrograms(Pretend pretend); // for tests

// The same with any number of arguments, in the given working folder (empty: the present one), and never recorded.
Status launch(const std::string& file, const std::vector<std::string>& arguments, const std::string& workingFolder);

// The value of an environment variable, or empty. setEnvironment is for tests.
std::string environment(std::string_view name);
void setEnvironment(std::string_view name, std::string_view value);

} // namespace kestrel::platform
