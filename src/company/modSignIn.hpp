// The one gate that every action passes.
#pragma once

#include <string_view>

namespace kestrel {

// rightKind: 0 start, 1 new, 2 change, 3 delete, 4 print, 5 preview. -1: permitted; 0: the sign-in was cancelled; 1:
// signed in but not permitted. Callers treat all but -1 as a refusal. Without PINs nothing is refused.
int authorizeOperation(std::string_view menu, std::string_view programId, int rightKind);

} // namespace kestrel
