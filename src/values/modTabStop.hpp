// Where the program itself sends the focus next.
#pragma once

namespace kestrel {

// Sets rosterSession.lookupNextControl to the stop of the entry form with the lowest tab index at or behind it: fields
// and buttons that are visible, enabled and tab stops. Among equal indexes the last wins; it never wraps; when nothing
// is found lookupNextControl stays.
void nextTabStop();

} // namespace kestrel
