// Acts of a person, played one by one whenever the program waits for one.
#pragma once

#include <functional>
#include <vector>

namespace kestrel::demo {

using Script = std::vector<std::function<void()>>;

// Plays the acts while doing runs; acts that nobody waited for are left over and counted.
std::size_t play(Script acts, const std::function<void()>& doing);

} // namespace kestrel::demo
