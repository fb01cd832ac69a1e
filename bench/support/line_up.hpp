// Processes that begin at the same moment: nobody begins before everybody is ready. Each says so, and waits until the
// other end of the start is closed. Made before the processes are.
#pragma once

#include <unistd.h>

namespace kestrel::bench {

class LineUp {
public:
    LineUp();                        // ends the process when it can't be made
    bool wait() const;               // in each of the processes; false: the start was called off
    void start(int processes) const; // in the one that made them; ends the process when one of them doesn't come

private:
    int ready[2], go[2];
};

} // namespace kestrel::bench
