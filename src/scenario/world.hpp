// The world around the program, as every scenario finds it.
#pragma once

namespace kestrel::scenario {

// Puts back all that world verbs have set: free clock, logon name "operator" on the computer "KESTREL", the program in
// "%/prgbin", no faults, programs and desktop there, an empty registry.
void resetWorld();

} // namespace kestrel::scenario
