// The server as processes of this machine.
#pragma once

#include "server.hpp"

namespace kestrel::bench {

class ServerProcess {
public:
    explicit ServerProcess(const std::string& connectionText); // of a server on this machine
    // Microseconds that all of its processes have used so far, those of ended sessions too.
    double processorTime() const;

private:
    int parent = 0;
};

} // namespace kestrel::bench
