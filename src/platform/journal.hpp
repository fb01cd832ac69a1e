// What a person would notice and what the databases were asked, in one order of time. Off in the program itself: only a
// scenario run switches it on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::journal {

enum class Channel {
    seen,      // a line that a person would notice, ready to be written down
    sentMain,  // a statement as the program sent it
    sentLocal, //
    engine,    // the same statement as the engine got it, when that differs
};

struct Entry {
    Channel channel;
    std::string text;
};

void start(); // empties the journal and switches it on
void stop();  // what was recorded stays to be read
bool running();
void record(Channel channel, std::string_view text); // nothing when it is off
const std::vector<Entry>& entries();

} // namespace kestrel::journal
