// What faults.hpp has set up, as the connection asks for it.
#pragma once

#include "platform/database/connection.hpp"

#include <optional>

namespace kestrel::database {

bool isBroken(Role role, std::string_view sql);
bool isOpeningBroken(Role role);
Failure brokenOnPurpose();
std::optional<int> faultyWaiting(); // seconds, when they were limited

} // namespace kestrel::database
