// The one place where the program waits for a person.
#pragma once

#include <functional>

namespace kestrel::frontend {

// Lets a person act until it is done or the process has ended. With a source of acts each of its acts is a person's;
// when none is left the wait is over.
void waitUntil(const std::function<bool()>& done);

// The hand's long press goes on into whatever waits for a person meanwhile, before the next act. False when no key is
// held.
bool repeatHeldKey();

} // namespace kestrel::frontend
