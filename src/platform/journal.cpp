#include "platform/journal.hpp"

namespace kestrel::journal {

namespace {

struct Journal {
    bool on = false;
    std::vector<Entry> entries;
};

Journal& theJournal() {
    static Journal present;
    return present;
}

} // namespace

void start() {
    theJournal() = Journal{true, {}};
}

void stop() {
    theJournal().on = false;
}

bool running() {
    return theJournal().on;
}

void record(Channel channel, std::string_view text) {
    if (running()) theJournal().entries.push_back({channel, std::string(text)});
}

const std::vector<Entry>& entries() {
    return theJournal().entries;
}

} // namespace kestrel::journal
