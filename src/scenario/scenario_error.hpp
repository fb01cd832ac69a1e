// The scenario itself is wrong: an unknown verb, control or property, an act that nobody could do at that moment.
// Raised inside a verb and caught by the line that holds it; it never travels through the program under test.
#pragma once

#include <stdexcept>

namespace kestrel::scenario {

struct ScenarioError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace kestrel::scenario
