// The desktop's own programs, asked to open a document, a folder or an address. While the journal runs, what was opened
// is recorded as seen: opened "TARGET".
#pragma once

#include "platform/pretend.hpp"

#include <string_view>

namespace kestrel::platform {

// Asks the desktop to open the path, or the address as it stands (whatever is no path to something that is there), with
// the folder (when it exists) as working folder; not waited for. Above 32: started. Anything else: why not (2 not
// found, 31 nothing that opens it).
int openWithDesktop(std::string_view target, std::string_view workingFolder);
void pretendShell(Pretend pretend); // for tests; none answers 31

} // namespace kestrel::platform
