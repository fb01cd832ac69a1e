#include "session/sessionValues.hpp"

#include "session/rosterSession.hpp"

namespace kestrel {

void resetSession() {
    installation = {};
    connections = {};
    staff = {};
    rosterSession = {};
}

} // namespace kestrel
