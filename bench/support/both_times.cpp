#include "both_times.hpp"

#include <fstream>
#include <string>

namespace kestrel::bench {

double clockTime() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

// The kernel counts nanoseconds for each process.
double Meter::serverTime() const {
    std::ifstream counted("/proc/" + std::to_string(serverProcess) + "/schedstat");
    double nanoseconds = 0;
    counted >> nanoseconds;
    return nanoseconds / 1e3;
}

} // namespace kestrel::bench
