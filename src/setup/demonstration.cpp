#include "setup/demonstration.hpp"

namespace kestrel::setup {

void addDemonstration(Rows& rows, const Place& place) {
    for (const Row& row : rowsOf("demonstration", place)) layOver(rows, row);
}

} // namespace kestrel::setup
