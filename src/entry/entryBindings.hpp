// The whole behaviour of the entry screen on one page: which of its events is answered by which step.
#pragma once

#include "screen/window.hpp"

#include <span>

namespace kestrel {

std::span<const screen::Binding> entryBindings();

} // namespace kestrel
