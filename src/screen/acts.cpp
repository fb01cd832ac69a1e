#include "screen/acts.hpp"

namespace kestrel::screen {

static PlayNext source = nullptr;

void setActSource(PlayNext newSource) {
    source = newSource;
}
PlayNext actSource() {
    return source;
}

} // namespace kestrel::screen
