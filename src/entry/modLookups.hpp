// The list windows as the entry screen opens them: with which condition, and where a pick lands. A pick only sets the
// field's text; the field's own leaving step, set off by the move to the next control, brings it into the session.
#pragma once

#include "screen/control.hpp"

namespace kestrel {

void openLookup(screen::Control& trigger);            // a button beside a code, or the Ctrl key in the code's field
void openLookupByDoubleClick(screen::Control& field); // passes the focus gate first

} // namespace kestrel
