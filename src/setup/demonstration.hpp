// The demonstration data: what a newcomer finds on top of the minimal rows.
#pragma once

#include "setup/rows.hpp"

namespace kestrel::setup {

void addDemonstration(Rows& rows, const Place& place);

} // namespace kestrel::setup
