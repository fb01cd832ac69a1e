#include "script.hpp"

#include "screen/acts.hpp"

namespace kestrel::demo {

static Script rest;

static bool playNext() {
    if (rest.empty()) return false;
    const auto act = rest.front();
    rest.erase(rest.begin());
    act();
    return true;
}

std::size_t play(Script acts, const std::function<void()>& doing) {
    rest = std::move(acts);
    screen::setActSource(playNext);
    doing();
    screen::setActSource(nullptr);
    return rest.size();
}

} // namespace kestrel::demo
