#include "session/sessionValues.hpp"

#include "session/companyValues.hpp"
#include "session/rosterSession.hpp"

namespace kestrel {

void resetSession() {
    installation = {};
    connections = {};
    staff = {};
    company = {};
    rosterSession = {};
}

} // namespace kestrel
