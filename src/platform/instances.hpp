// Whether another instance of this program runs: any process of the same user on the same installation root.
#pragma once

#include <string_view>

namespace kestrel::platform {

// Announces this process for the root and answers whether another process had announced itself before. Of two plain
// starts at the same moment exactly one gets false. A process that gets true is not announced: it is about to give way.
// Nothing stale is left after a kill: the kernel drops the mark with the process.
bool anotherInstanceRuns(std::string_view root);
// Announces this process without asking (a start that is exempt from the rule is still seen by later ones).
void announceInstance(std::string_view root);
void withdrawInstance();

// The installation at the root is going to be removed: what processes marked themselves with goes too. Whoever still
// runs on it is known to nobody from then on.
void forgetInstances(std::string_view root);

// For tests: pretends that another one runs, or no longer does.
void pretendInstance(bool running);

} // namespace kestrel::platform
