#include "line_up.hpp"

#include <cstdio>
#include <cstdlib>

namespace kestrel::bench {

LineUp::LineUp() {
    if (pipe(ready) != 0 || pipe(go) != 0) std::exit(2);
}

bool LineUp::wait() const {
    char byte = 0;
    close(ready[0]);
    close(go[1]);
    return write(ready[1], &byte, 1) == 1 && read(go[0], &byte, 1) == 0;
}

void LineUp::start(int processes) const {
    char byte = 0;
    close(ready[1]);
    for (int process = 0; process < processes; ++process) {
        if (read(ready[0], &byte, 1) == 1) continue;
        std::fprintf(stderr, "one of the processes ended before its start\n");
        std::exit(2);
    }
    close(go[1]);
}

} // namespace kestrel::bench
