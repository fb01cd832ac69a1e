// The addressee that a newcomer is shown first.
#pragma once

#include "platform/result.hpp"

#include <string>
#include <string_view>

namespace kestrel::setup {

// The command line that opens the example of a full installation: office, base date of its number, roster and
// addressee, 25 characters. Reads the main database below folder; fails where that can't be read or the example is not
// in it.
platform::Result<std::string> exampleCommandLine(std::string_view folder);

} // namespace kestrel::setup
