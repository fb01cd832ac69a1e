// The pieces of resetScreens() that live with their owners.
#pragma once

namespace kestrel::screen {

void forgetEnd();
void forgetWaiting();

} // namespace kestrel::screen
