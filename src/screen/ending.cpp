#include "screen/ending.hpp"

#include "screen/reset.hpp"

#include <optional>

namespace kestrel::screen {

static std::optional<int> status;

bool ended() {
    return status.has_value();
}
int endStatus() {
    return status.value_or(0);
}

void endProcess(int newStatus) {
    if (!status) status = newStatus;
}

void forgetEnd() {
    status.reset();
}

} // namespace kestrel::screen
