// Who wrote a row: what every column ユーザID of the main database holds where its table keeps the writer's stamp.
#pragma once

#include "session/sessionValues.hpp"

#include <string>

namespace kestrel {

// Logon, staff member and computer of the writer, joined with no separator.
inline std::string writerStamp() {
    return installation.userId + staff.staffCode + installation.computerName;
}

} // namespace kestrel
