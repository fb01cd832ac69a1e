#include "screen/frontend.hpp"

namespace kestrel::frontend {

std::optional<ScreenSize> screenSize() {
    return std::nullopt;
}

} // namespace kestrel::frontend
